// How much a test goes through: less where each step takes long, as under
// valgrind.
#ifndef ZELDEBUGDIALOG_TESTS_SUPPORT_MANYORFEW_H
#define ZELDEBUGDIALOG_TESTS_SUPPORT_MANYORFEW_H

#include <cstdlib>

namespace support {

template <class Number> Number manyOrFew(Number many, Number few) {
  return std::getenv("ZELDEBUGDIALOG_FEWER_RECORDS") == nullptr ? many : few;
}

} // namespace support

#endif
