// A cable of the catalogue as a row of a table, and as a document.
#ifndef ZELDEBUG_CABLETEXT_H
#define ZELDEBUG_CABLETEXT_H

#include <string>
#include <vector>

#include <ZelDebugDialog/ConfigurationModel/Language.h>

#include "output/JsonForward.h"

namespace zeldebug {

std::vector<std::string> cableHeadings();
std::vector<std::string> cableCells(const ZelDebugDialog::CableInfo &cable);
Json cableJson(const ZelDebugDialog::CableInfo &cable);

} // namespace zeldebug

#endif
