"""Writes a test program of the C++ examples of a document: one test each, named after its section.

Usage: examples_to_tests.py DOCUMENT TARGET [SUITE NAMESPACE]
"""

import re
import sys


def main(document, target, suite="Foundation", namespace="orlo"):
    includes, tests, section, count = [], [], "", 0
    block, start = None, 0
    with open(document, encoding="utf-8") as lines:
        for number, line in enumerate(lines, 1):
            line = line.rstrip("\n")
            if block is None:
                if line.startswith("## "):
                    section, count = "".join(word.capitalize() for word in re.findall(r"\w+", line)), 0
                elif line == "```cpp":
                    block, start = [], number + 1
            elif line == "```":
                count += 1
                tests.append(f'TEST({suite}, {section}Example{count}) {{\n#line {start} "{document}"\n'
                             + "\n".join(block) + "\n}\n")
                block = None
            elif line.startswith("#include"):
                includes.append(line)
                block.append("")
            else:
                block.append(line)
    if not tests:
        sys.exit(f"{document} has no examples")
    with open(target, "w", encoding="utf-8") as out:
        out.write("\n".join(sorted(set(includes))) + "\n\n#include <gtest/gtest.h>\n\n#include <string>\n\n"
                  "#undef assert\n#define assert(condition) EXPECT_TRUE(condition)\n\n"
                  f"namespace {namespace} {{\nnamespace {{\n\n" + "\n".join(tests) +
                  f"\n}}  // namespace\n}}  // namespace {namespace}\n")


if __name__ == "__main__":
    main(*sys.argv[1:])
