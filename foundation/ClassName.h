#pragma once

#include <typeinfo>

namespace orlo {

class String;

/// The name of a class as it is written in the source, with its namespaces.
String className(const std::type_info& type);

}  // namespace orlo
