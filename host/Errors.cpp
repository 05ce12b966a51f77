#include "host/Errors.h"

namespace host {

std::string located(const std::string& file, const std::string& text) {
  return file + ": " + text;
}

std::string located(const std::string& file, long line, const std::string& text) {
  return line > 0 ? file + ":" + std::to_string(line) + ": " + text : located(file, text);
}

std::string counted(std::size_t count, const std::string& noun) {
  return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

std::string oneLine(std::string text) {
  for (char& character : text) {
    const auto byte = static_cast<unsigned char>(character);
    if (byte < 0x20 || byte == 0x7F) character = ' ';
  }
  const auto end = text.find_last_not_of(' ');
  text.erase(end == std::string::npos ? 0 : end + 1);
  return text;
}

}  // namespace host
