#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "base/File.h"
#include "base/PathState.h"

// The files of the data folder: year databases ("*.kwd") and the side files ("*.dat") that are
// named after them. Patterns match in any letter case; prefixes are compared exactly.
namespace app {

inline constexpr std::string_view kTemplate = "Vorlverbr8.kwx";
inline constexpr std::string_view kDefaultYear = "Verbrauch.kwd";
inline constexpr std::string_view kYearExtension = ".kwd";
inline constexpr std::string_view kSideExtension = ".dat";

// Names of the files (not folders) with the extension, sorted.
base::Result<std::vector<std::string>> listFiles(const base::FileSystem& files,
                                                 const std::string& folder,
                                                 std::string_view extensionWithDot);
// The same for showing them: a folder that cannot be read has none.
std::vector<std::string> filesWithExtension(const base::FileSystem& files,
                                            const std::string& folder,
                                            std::string_view extensionWithDot);

// "*.kwd", or "*.kwx" as the template.
bool isNamedAsYear(std::string_view path);
// Before something else than a year is written there: AlreadyExists when the name is a year's, or
// when what lies there begins like a database or cannot be looked at.
base::Result<void> checkIsNoYear(base::FileSystem& files, const std::string& target);

// The name without the characters that a year's name cannot have: \/<>*.?:;,| and control
// characters.
std::string allowedYearName(std::string_view typed);
// Without blanks at both ends, which nobody sees in a list: two years could look alike.
std::string trimmedYearName(std::string_view typed);

// Whether the system can keep a year of that name in the folder with all that belongs to it.
bool isNameTooLong(const base::FileSystem& files, const std::string& folder,
                   const std::string& name);

// A copy of the template, verified. An existing target is replaced, whole or not at all; its side
// files go with it, for they would act on the new year.
base::Result<void> createYear(base::FileSystem& files, const base::PathState& paths,
                              const std::string& target);
// "Verbrauch.kwd" from the template, if there is none yet.
base::Result<void> CreateDefaultYearDatabase(base::FileSystem& files, const base::PathState& paths);

// What goes with a year: every "*.dat" file whose name begins with the year's base name. Names of
// up to four characters have no side files. The household's offers belong to no year,
// whatever a year is called.
base::Result<std::vector<std::string>> deletedWith(const base::FileSystem& files,
                                                   const std::string& dataFolder,
                                                   const std::string& name);
// The year database, a journal that waits beside it, and deletedWith(): all or nothing. A year that
// is open is InUse.
base::Result<void> deleteYear(base::FileSystem& files, const std::string& dataFolder,
                              const std::string& name);
// Of the listed years those that own one of the side files, apart from the named one.
std::vector<std::string> otherOwners(const std::vector<std::string>& sideFiles,
                                     const std::vector<std::string>& years,
                                     const std::string& except);

// Existing years whose name begins with the new one's, or the other way round: deleting the one
// takes side files of the other along.
std::vector<std::string> yearsWithCommonBeginning(const std::string& newName,
                                                  const std::vector<std::string>& years);
// The line about it; "" when there are none.
std::string namesHint(const std::vector<std::string>& similarYears);

// A database left by a crash in mid-commit is finished from its journal, so that a copy of the one
// file holds everything. Nothing to do without a journal.
base::Result<void> completeWaitingJournal(base::FileSystem& files, const std::string& database);
std::string journalOf(const std::string& database);

// What a crash has left of an action of this program in a folder: a change of several files is
// completed or swept away, and temporary files go, those of one year if it is named, otherwise (in
// the data folder) all, its safety copies included. Actions that are under way elsewhere are left
// alone.
base::Result<void> finishInterrupted(base::FileSystem& files, const std::string& folder,
                                     const std::string& year = {});

// Names in the folder that are no folders; pattern "*.*" or "*" are all, "*.dat" those with the
// extension.
std::vector<std::string> ListFiles(const base::FileSystem& files, const std::string& folder,
                                   std::string_view pattern);
std::vector<std::string> ListSubfolders(const base::FileSystem& files, const std::string& folder);

// Copies every file whose name ends in "dat" (exact case) to the target, subfolders likewise at any
// depth; missing folders of the target are made. For a file that cannot be copied failed gets the
// text of the box (title "Fehler beim kopieren", critical icon), and the next one follows. Does
// nothing when both texts are equal.
void CopySideFiles(base::FileSystem& files, const std::string& sourceFolder,
                   const std::string& targetFolder,
                   const std::function<void(const std::string& message)>& failed);

}  // namespace app
