#pragma once

#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

/// Switches the numbers of the process to a locale with a decimal comma, and money to one with signs of its own, for a
/// scope. The locale is made for it, since none need be installed.
class CDecimalComma {
public:
  CDecimalComma() : former_(std::setlocale(LC_NUMERIC, nullptr)), formerMoney_(std::setlocale(LC_MONETARY, nullptr)) {
    const auto folder = std::filesystem::temp_directory_path() / ("mfilter-locale-" + std::to_string(getpid()));
    std::filesystem::create_directories(folder);
    std::ofstream(folder / "source") << "LC_NUMERIC\ndecimal_point \",\"\nthousands_sep \".\"\ngrouping 3;3\n"
                                     << "END LC_NUMERIC\n"
                                     << "LC_MONETARY\npositive_sign \"p\"\nnegative_sign \"m\"\nEND LC_MONETARY\n";
    const std::string at = folder.string();
    // It ends with a failure for the categories that the source lacks, and writes the locale all the same.
    const std::string command =
        "localedef -c -i '" + at + "/source' -f ANSI_X3.4-1968 '" + at + "/comma' >/dev/null 2>&1 || true";
    if (std::system(command.c_str()) == 0) {
      setenv("LOCPATH", at.c_str(), 1);
      ok_ = std::setlocale(LC_NUMERIC, "comma") && std::string(std::localeconv()->decimal_point) == "," &&
            std::setlocale(LC_MONETARY, "comma") && std::string(std::localeconv()->negative_sign) == "m";
      unsetenv("LOCPATH");
    }
    std::filesystem::remove_all(folder);
  }
  ~CDecimalComma() {
    std::setlocale(LC_NUMERIC, former_.c_str());
    std::setlocale(LC_MONETARY, formerMoney_.c_str());
  }
  CDecimalComma(const CDecimalComma&) = delete;
  CDecimalComma& operator=(const CDecimalComma&) = delete;

  bool IsOk() const { return ok_; }

private:
  std::string former_;
  std::string formerMoney_;
  bool ok_ = false;
};
