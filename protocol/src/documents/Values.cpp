#include "documents/Values.h"

#include <algorithm>

#include "documents/Bytes.h"
#include "documents/Json.h"

namespace ZelDebugDialog::documents {

namespace {

Json deviceJson(const ChainDevice &device) {
  Json object = Json::object();
  for (const auto &[name, value] : device)
    object[name] = toJson(value);
  return object;
}

} // namespace

Json toJson(const Value &value) {
  if (value.IsFlag())
    return value.Flag();
  if (value.IsNumber())
    return value.Number();
  if (value.IsText())
    return value.Text();
  if (!value.IsChain())
    return nullptr;
  Json list = Json::array();
  for (const ChainDevice &device : value.Devices())
    list.push_back(deviceJson(device));
  return list;
}

Json bytesOf(const Value &value) {
  if (value.IsText() && !isUtf8(value.Text()))
    return encodeBytes(value.Text());
  if (!value.IsChain())
    return nullptr;
  Json list = Json::array();
  for (const ChainDevice &device : value.Devices()) {
    Json object = Json::object();
    for (const auto &[name, field] : device)
      if (Json bytes = bytesOf(field); !bytes.is_null())
        object[name] = std::move(bytes);
    list.push_back(std::move(object));
  }
  const bool isText =
      std::all_of(list.begin(), list.end(),
                  [](const Json &device) { return device.empty(); });
  return isText ? Json() : list;
}

Json fieldJson(const std::string &name, const Value &value) {
  const bool isDevice = !name.empty() && name.back() == ']';
  return isDevice && value.IsChain() && value.Devices().size() == 1
             ? deviceJson(value.Devices().front())
             : toJson(value);
}

Json toJson(const std::vector<Loss> &losses) {
  Json list = Json::array();
  for (const Loss &loss : losses)
    list.push_back(
        {{"field", loss.field},
         {"value", toJson(loss.value)},
         {"readBack", toJson(loss.readBack)},
         {"reason", loss.reason},
         {"anchor", loss.anchor.empty() ? Json() : Json(loss.anchor)}});
  return list;
}

Json toJson(const std::vector<Effect> &effects) {
  Json list = Json::array();
  for (const Effect &effect : effects)
    list.push_back({{"setting", effect.setting},
                    {"before", toJson(effect.before)},
                    {"after", toJson(effect.after)},
                    {"why", effect.why}});
  return list;
}

} // namespace ZelDebugDialog::documents
