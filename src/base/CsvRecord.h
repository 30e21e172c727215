#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The one-line text records of the side files ("3,18250.5", "\"D:\\Daten\\\"", "#TRUE#"): values
// separated by commas, texts in double quotes, truth values between number signs, point as decimal
// separator whatever the system's locale, CR LF at the end.
namespace base {

// Building a record. Texts are UTF-8 here; the file gets windows-1252.
class RecordWriter {
 public:
  RecordWriter& number(int value);
  RecordWriter& number(float value);   // shortest form, at most 7 significant digits
  RecordWriter& number(double value);  // shortest form that reads back the same, at most 15 digits
  RecordWriter& text(std::string_view utf8);
  RecordWriter& boolean(bool value);
  // The record as bytes (windows-1252) with CR LF.
  std::string line() const;

 private:
  RecordWriter& add(std::string_view value);
  std::string line_;
};

// Taking a record apart, leniently: blanks around values, missing line end, both "0.5" and ".5".
// Reads only the first line of the bytes; texts come back as UTF-8.
class RecordReader {
 public:
  // A side file holds one short line; more than this belongs to another program and has no field.
  static constexpr std::size_t kLongestLine = 4096;

  explicit RecordReader(std::string_view bytes);
  std::size_t size() const { return fields_.size(); }
  // nullopt when there is no such field or it is not of that kind.
  std::optional<double> number(std::size_t index) const;
  std::optional<std::string> text(std::size_t index) const;  // quoted or not
  std::optional<bool> boolean(std::size_t index) const;      // #TRUE#, #false#, in any case

 private:
  std::vector<std::string> fields_;
};

}  // namespace base
