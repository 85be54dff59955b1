#include "server/AskedValues.h"

#include "documents/Bytes.h"
#include "documents/Json.h"
#include "server/Numbers.h"
#include "server/Parameters.h"

namespace ZelDebugDialog::protocol {

namespace {

[[noreturn]] void refuse(const std::string &setting, const Given &value,
                         const std::string &problem) {
  const std::string shown = shownJson(value);
  refuseParameter("values",
                  quote(setting) + ": " + quote(shown) + " is " + problem,
                  {setting, shown});
}

Value textOf(const std::string &setting, const Given &object) {
  const auto bytes = object.find("bytes");
  if (object.size() != 1 || bytes == object.end() || !bytes->is_string())
    refuse(setting, object, "no object with 'bytes', a text in base64, alone");
  const auto decoded =
      documents::decodeBytes(bytes->get_ref<const std::string &>());
  if (!decoded)
    refuse(setting, object, "no base64 with its padding");
  return *decoded;
}

Value plainValue(const std::string &setting, const Given &value) {
  if (value.is_boolean())
    return value.get<bool>();
  if (value.is_string())
    return value.get<std::string>();
  if (const auto number = wholeNumber(value))
    return *number;
  if (value.is_object())
    return textOf(setting, value);
  refuse(setting, value,
         "no whole number of 64 bits, text, true, false, or object with "
         "'bytes'");
}

Value chainOf(const std::string &setting, const Given &list) {
  Value::Chain chain;
  for (const Given &device : list) {
    if (!device.is_object())
      refuse(setting, device, "no object with the fields of a device");
    ChainDevice fields;
    for (const auto &[name, value] : device.items())
      fields.emplace_back(name, plainValue(setting, value));
    chain.push_back(std::move(fields));
  }
  return chain;
}

} // namespace

SettingValues askedValues(const Given &values) {
  SettingValues asked;
  for (const auto &[setting, value] : values.items())
    asked.emplace_back(setting, value.is_array() ? chainOf(setting, value)
                                                 : plainValue(setting, value));
  return asked;
}

} // namespace ZelDebugDialog::protocol
