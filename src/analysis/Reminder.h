#pragma once

#include "analysis/Tariffs.h"

// What is due, as one sentence, without a process of its own: it is asked when a window is looked
// at.
namespace analysis {

struct Reminder {
  enum class Way { RecordMonth, CompareTariffs };
  Way way = Way::RecordMonth;
  std::string text;
  std::string year;  // file of the data folder, to be opened for it; may be empty for contracts
};

// "Der Vertrag Heimstrom (Strom) endet am 31.12.2025.", of several the earliest: from two months
// before a contract or a price guarantee ends to one month after. "" when nothing is due.
std::string endingContract(const std::vector<Offer>& offers, base::Date today);
std::string endingContract(base::FileSystem& files, const std::string& folder, base::Date today);

// The earliest year of the folder with months that have not been read comes before contracts. Years
// whose name says that they are long over are not opened.
std::optional<Reminder> reminderOf(base::FileSystem& files, const std::string& folder,
                                   base::Date today);

}  // namespace analysis
