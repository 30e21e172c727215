#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "jet/engine/Pager.h"

namespace jet {

// The tables that a file lists in its own table of objects.
struct Catalog {
  struct Entry {
    std::string name;
    std::uint32_t definition = 0;  // page
    bool system = false;
  };
  std::vector<Entry> tables;  // sorted without regard to letter case

  static base::Result<Catalog> read(Pager& pager);
  const Entry* find(std::string_view name) const;
};

// Page of the definition of the table of objects.
inline constexpr std::uint32_t kCatalogPage = 2;
inline constexpr char kCatalogName[] = "MSysObjects";
inline constexpr char kPermissionsName[] = "MSysACEs";

}  // namespace jet
