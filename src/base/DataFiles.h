#pragma once

#include <string_view>

// Files of the data folder that belong to no year.
namespace base {

// Offers of suppliers.
inline constexpr std::string_view kOfferFile = "Tarife.dat";

}  // namespace base
