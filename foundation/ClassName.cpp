#include "foundation/ClassName.h"

#include "foundation/String.h"

#include <cstdlib>
#include <cxxabi.h>
#include <memory>

namespace orlo {

String className(const std::type_info& type) {
  struct CFree {
    void operator()(char* text) const { std::free(text); }
  };
  int status = 0;
  const std::unique_ptr<char, CFree> name(abi::__cxa_demangle(type.name(), nullptr, nullptr, &status));
  return fromUTF8(name ? name.get() : type.name());
}

}  // namespace orlo
