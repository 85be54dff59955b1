#include "protocol/walk/Requests.h"

#include <array>

namespace walk {

namespace {

constexpr std::size_t mostWritten = 100;

const std::array<const char *, 14> commands{{
    "connect lc hdu",
    "connect lc sim",
    "connect lc hdu -cable type quorla_podusb port USB21 frequency 3000000 "
    "-debugdevice devicenr 1",
    "connect lc hdu -cable type quorla_usb -cable type",
    "connect lc hdu -debugdevice devicenr 300",
    "connect lc hdu -debugdevice cpunr 2 -debugdevice cpunr 1",
    "connect ppc hw -debugdevice devicenr 2 cpunr 1",
    "connect ppc sim",
    "connect arm hw",
    "connect lc hdu -configdevice devicenr 1 partname p irlength 6 idcode 1",
    "connect lc hdu -romemstartadr 0x1000 -romemsize 4096",
    "connect nonsense",
    "-quiet",
    "",
}};

// In base64: bytes that are no UTF-8, and some that are.
const std::array<const char *, 6> bytes{
    {"/w==", "Qf9C", "w6Q=", "AA==", "gICA", "QUJD"}};
const std::array<const char *, 9> texts{{"A", "USB22", "a b", "", "\xC3\xA4",
                                         "/dev/ttyS0", "-cable", "0x40",
                                         "no value of anything"}};
const std::array<const char *, 10> numbers{{"0", "1", "3 MHz", "6000000",
                                            "0x40000000", "not set", "-1",
                                            "fast", "4294967296", ""}};

} // namespace

const Json &Requests::setting(Random &random) const {
  for (;;) {
    const Json &row = random.of(settings);
    const bool isOfDevice = row["id"].get_ref<const std::string &>().find(
                                "[]") != std::string::npos;
    // What is only shown is refused, which is soon seen enough.
    if (!isOfDevice && (row["settable"] || random.oneIn(20)))
      return row;
  }
}

Json Requests::text(Random &random) const {
  if (random.oneIn(3))
    return {{"bytes", random.of(bytes)}};
  return random.of(texts);
}

Json Requests::chain(Random &random) const {
  Json devices = Json::array();
  for (std::size_t count = random.below(4); count > 0; --count) {
    Json device{{"devicenr", random.below(5)}, {"partname", text(random)}};
    if (random.oneIn(2))
      device["irlength"] = random.below(40);
    if (random.oneIn(2))
      device["idcode"] = random.below(1U << 31U);
    devices.push_back(std::move(device));
  }
  return devices;
}

Json Requests::value(Random &random, const Json &row) const {
  const std::string kind = row["kind"];
  if (kind == "chain")
    return chain(random);
  if (row.contains("choices") && !random.oneIn(8))
    return random.of(row["choices"])["value"];
  if (kind == "text" || kind == "file")
    return text(random);
  if (kind == "flag")
    return random.oneIn(2) ? Json(random.oneIn(2)) : Json(random.below(2));
  if (random.oneIn(3))
    return random.of(numbers);
  const std::int64_t least = row.value("minimum", 0);
  const std::int64_t most = row.value("maximum", std::int64_t{100});
  const std::array<std::int64_t, 6> known{
      {least, most, least + 1, most - 1, 0, 3000000}};
  if (random.oneIn(30))
    return random.oneIn(2) ? least - 1 : most + 1;
  return random.of(known);
}

std::string Requests::command(Random &random) const {
  std::string text = !written.empty() && random.oneIn(2) ? random.of(written)
                                                         : random.of(commands);
  if (random.oneIn(3))
    text += std::string(" ") + random.of(commands);
  if (!text.empty() && random.oneIn(6))
    text.erase(random.below(text.size()), 1 + random.below(4));
  // What is left of a character is none that a request can hold.
  const std::string shown =
      Json(text).dump(-1, ' ', false, Json::error_handler_t::replace);
  return Json::parse(shown).get<std::string>();
}

std::string Requests::fileContent(Random &random) const {
  if (random.oneIn(8))
    return std::string(2000, 'x');
  if (random.oneIn(8))
    return "connect lc hdu -cable type quorla_podusb port \xFF\xFE";
  return command(random) + (random.oneIn(2) ? "\n" : "");
}

void Requests::learn(const Json &state) {
  if (written.size() < mostWritten && state["command"].is_string())
    written.push_back(state["command"]);
}

Json Requests::any(Random &random, const Json &state) const {
  const auto request = [](const char *act, Json params = Json::object()) {
    params["method"] = std::string("configuration/") + act;
    return params;
  };
  switch (random.below(18)) {
  case 0:
  case 1:
    return request("undo");
  case 2:
    return request("redo");
  case 3:
    return request("revert");
  case 4: {
    Json names = Json::array();
    for (std::size_t count = random.below(4); count > 0; --count)
      names.push_back(setting(random)["id"]);
    return request("reset", {{"settings", names}});
  }
  case 5:
    return request("copy");
  case 6:
  case 7:
    return request("save", {{"force", random.oneIn(2)}});
  case 8:
  case 9:
    return request("edit", {{"command", command(random)}});
  case 10:
  case 11: {
    const std::string id =
        random.oneIn(6) ? Json("command") : setting(random)["id"];
    const Json text = random.oneIn(4) ? Json() : Json(random.of(numbers));
    return request("draft", {{"setting", id}, {"text", text}});
  }
  default:
    break;
  }
  Json values = Json::object();
  for (std::size_t count = 1 + random.below(4); count > 0; --count) {
    const Json &row = setting(random);
    const std::string id = row["id"];
    // Also what it has already.
    values[id] =
        random.oneIn(10) ? state["settings"][id]["value"] : value(random, row);
  }
  return request("change", {{"values", values}});
}

} // namespace walk
