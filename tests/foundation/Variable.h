#pragma once

#include <cstdlib>
#include <string>

/// The value of a variable for as long as this lives.
class CVariable {
public:
  CVariable(const char* name, const std::string& value) : name_(name) {
    if (const char* before = std::getenv(name)) before_ = before;
    wasSet_ = std::getenv(name) != nullptr;
    setenv(name, value.c_str(), 1);
  }
  ~CVariable() {
    if (wasSet_)
      setenv(name_, before_.c_str(), 1);
    else
      unsetenv(name_);
  }
  CVariable(const CVariable&) = delete;
  CVariable& operator=(const CVariable&) = delete;

private:
  const char* name_;
  std::string before_;
  bool wasSet_;
};
