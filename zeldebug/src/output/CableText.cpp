#include "output/CableText.h"

#include <fmt/format.h>

#include "output/Json.h"
#include "output/Table.h"

namespace zeldebug {

using ZelDebugDialog::CableInfo;

std::vector<std::string> cableHeadings() {
  return {"TYPE",       "KEYWORD READ", "TEXT WRITTEN", "WRITABLE",
          "DEFAULT HZ", "DEFAULT PORT", "ACCEPTED HZ"};
}

std::vector<std::string> cableCells(const CableInfo &cable) {
  return {fmt::format("{}", cable.type),
          dashIfEmpty(joined(cable.keywords)),
          dashIfEmpty(cable.written),
          cable.writable ? "yes" : "no",
          fmt::format("{}", cable.defaultFrequency),
          dashIfEmpty(cable.defaultPort),
          dashIfEmpty(joined(cable.acceptedFrequencies))};
}

Json cableJson(const CableInfo &cable) {
  return {{"type", cable.type},
          {"keywords", cable.keywords},
          {"written", cable.writable ? Json(cable.written) : Json()},
          {"writable", cable.writable},
          {"frequencies", cable.acceptedFrequencies},
          {"offeredFrequencies", cable.offeredFrequencies},
          {"defaultFrequency", cable.defaultFrequency},
          {"defaultPort", cable.defaultPort}};
}

} // namespace zeldebug
