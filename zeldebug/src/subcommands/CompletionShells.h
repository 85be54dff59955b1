// The shells that there is completion for.
#ifndef ZELDEBUG_COMPLETIONSHELLS_H
#define ZELDEBUG_COMPLETIONSHELLS_H

#include <string>
#include <vector>

namespace zeldebug {

std::vector<std::string> completionShells();

} // namespace zeldebug

#endif
