#include "ComMsgMgr.h"

#include <cstdarg>
#include <cstdio>

void ComMsgMgr::sendMsg::eval(int /*kind*/, const char * /*sourcePath*/,
                              int /*line*/, const char *tool, unsigned /*mask*/,
                              const char *format, ...) {
  std::fprintf(stderr, "%s: ", tool);
  std::va_list arguments;
  va_start(arguments, format);
  std::vfprintf(stderr, format, arguments);
  va_end(arguments);
}
