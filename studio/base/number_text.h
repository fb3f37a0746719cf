#pragma once

#include <QString>
#include <string>

/// A number with at most four decimals and no more digits than it needs.
std::string NumberText(double value);

/// The same with the decimal sign of the user's language.
QString NumberForUser(double value);
