// "-pfsl": the fast simplex link of a Lumacore. It is checked and not kept, so
// there is nothing to write.
#include "KvoOption_Parser/Descriptions.h"
#include "KvoOption_Parser/Parameters.h"
#include "ZelDebugDialog/KvoOption_Parser.h"

namespace ZelDebugDialog {

namespace kvo {

namespace {

constexpr std::string_view unknownParameter =
    "UNKNOWN Parameter '%s' for  option '-pfsl'";
constexpr std::string_view unknownType =
    "UNKNOWN Parameter '%s' for  option 'type'";

constexpr std::array<NamedValue, 3> linkTypes{{{"m", 0}, {"s", 0}, {"ms", 0}}};

int readPort(const Argument & /*argument*/, EngineImp & /*imp*/) {
  return code::done;
}

int readType(const Argument &argument, EngineImp &imp) {
  if (findNamed(argument, linkTypes) == nullptr)
    return refuse(imp, unknownType, {argument.value});
  return code::done;
}

constexpr std::array<Parameter<EngineImp>, 2> parameters{{
    {"port", readPort, {}},
    {"type", readType, oneOf(linkTypes, {})},
}};

} // namespace

int readFsl(WordCursor &cursor, EngineImp &imp) {
  return readParameters(cursor, imp, parameters, unknownParameter, imp).code;
}

void describeFsl(CommandOption &option) {
  describeParameters(option, parameters);
}

} // namespace kvo

unsigned KvoOption_Parser::parse_lcfsloptions(std::string &command,
                                              EngineImp &imp) {
  return static_cast<unsigned>(kvo::consume(command, imp, kvo::readFsl));
}

int KvoOption_Parser::write_lcfsloptions(std::string & /*out*/,
                                         EngineImp & /*imp*/) {
  return kvo::code::done;
}

} // namespace ZelDebugDialog
