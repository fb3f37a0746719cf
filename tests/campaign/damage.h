#pragma once

#include <string>

#include "campaign/campaign.h"

namespace campaign {

/// The same with a few bytes, lines or longer pieces changed, lost, doubled or out of place.
std::string Damaged(Random& random, std::string bytes);

}  // namespace campaign
