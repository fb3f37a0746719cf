#pragma once

#include <QString>
#include <functional>

class QWidget;

/// Takes the share that is done, 0 to 1; answers whether to go on.
using Progress = std::function<bool(double share)>;

/// Does the work on a thread of its own and returns after it. The window stays alive meanwhile but
/// takes no orders; after half a second a dialog says how far the work is, and can cancel it,
/// as the end of the program does.
/// Answers what the work answers, or false once it was cancelled, and throws what it throws.
bool DoInBackground(QWidget& window, const QString& label,
                    const std::function<bool(const Progress&)>& work);
