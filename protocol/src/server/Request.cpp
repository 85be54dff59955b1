#include "server/Request.h"

#include <cmath>
#include <new>
#include <set>
#include <vector>

#include "documents/Json.h"
#include "server/Numbers.h"

namespace ZelDebugDialog::protocol {

namespace {

bool nestsTooDeeply(std::string_view text) {
  std::size_t depth = 0;
  bool isInText = false;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char c = text[at];
    if (c == '"')
      isInText = !isInText;
    else if (isInText)
      at += c == '\\' ? 1 : 0;
    else if (c == '[' || c == '{')
      ++depth;
    else if ((c == ']' || c == '}') && depth > 0)
      --depth;
    if (depth > deepestNesting)
      return true;
  }
  return false;
}

/// Finds names that an object has twice: the first of the request itself, and
/// the first in its parameters. What is passed over may have any.
class Twins {
public:
  void see(Given::parse_event_t event, const Given &parsed) {
    if (event == Given::parse_event_t::object_start) {
      open.emplace_back();
    } else if (event == Given::parse_event_t::object_end) {
      open.pop_back();
    } else if (event == Given::parse_event_t::key) {
      const auto &name = parsed.get_ref<const std::string &>();
      if (open.size() == 1)
        member = name;
      else if (open.size() == 2)
        parameter = name;
      const bool isNew = open.back().insert(name).second;
      if (!isNew)
        note(name);
    }
  }

  std::optional<std::string> ofRequest;
  bool isOfId = false;
  std::optional<Twin> ofParams;

private:
  void note(const std::string &name) {
    if (open.size() == 1) {
      ofRequest = ofRequest.value_or(name);
      isOfId = isOfId || name == "id";
    } else if (member == "params" && !ofParams) {
      ofParams = Twin{parameter, name};
    }
  }

  std::vector<std::set<std::string>> open;
  std::string member;    ///< of the request, that is being read
  std::string parameter; ///< of those in `member`
};

Fault noRequest(const std::string &why) {
  return {FaultCode::noRequest, "this is no request: " + why};
}

Given parse(std::string_view text, Twins &twins) {
  if (text.size() > longestRequest)
    throw Fault(FaultCode::noJson, "a request has at most " +
                                       std::to_string(longestRequest) +
                                       " bytes");
  if (nestsTooDeeply(text))
    throw Fault(FaultCode::noJson, "at most " + std::to_string(deepestNesting) +
                                       " arrays and objects nest");
  // The reader of JSON would take a null byte for the end of the text.
  const std::size_t null = text.find('\0');
  if (null != std::string_view::npos)
    throw Fault(FaultCode::noJson, "this is no JSON: byte " +
                                       std::to_string(null + 1) + " is null");
  const auto see = [&twins](int, Given::parse_event_t event, Given &parsed) {
    twins.see(event, parsed);
    return true;
  };
  try {
    return Given::parse(text.begin(), text.end(), see);
  } catch (const Given::parse_error &error) {
    throw Fault(FaultCode::noJson, "this is no JSON in UTF-8, from byte " +
                                       std::to_string(error.byte) + " on");
  } catch (const Given::out_of_range &) {
    throw Fault(FaultCode::noJson, "a number is too large for any kind of it");
  }
}

/// An answer has the very same one: numbers of more digits than are kept would
/// come back as others.
bool isId(const Given &id) {
  if (id.is_number_float())
    return std::abs(id.get<double>()) < mostExact;
  return id.is_string() || id.is_number() || id.is_null();
}

/// Reads the members of `object` into `request`, the identification first.
void readMembers(Given &object, const Twins &twins, Request &request) {
  const auto id = object.find("id");
  const bool hasId = id != object.end() && !twins.isOfId;
  if (hasId && isId(*id))
    request.id = *id;
  if (twins.ofRequest)
    throw noRequest("the member " + quote(*twins.ofRequest) + " stands twice");
  if (hasId && !isId(*id))
    throw noRequest("'id' is no text, number of 64 bits, or null");
  const auto version = object.find("jsonrpc");
  if (version == object.end() || *version != "2.0")
    throw noRequest("'jsonrpc' is not \"2.0\"");
  const auto method = object.find("method");
  if (method == object.end() || !method->is_string())
    throw noRequest("'method' is no text");
  const auto params = object.find("params");
  if (params != object.end() && !params->is_structured())
    throw noRequest("'params' is no object");
  request.method = method->get<std::string>();
  if (params != object.end())
    request.params = std::move(*params);
  request.twin = twins.ofParams;
}

} // namespace

Request readRequest(std::string_view text) {
  Request request;
  try {
    Twins twins;
    Given given = parse(text, twins);
    if (given.is_array())
      throw noRequest("requests come one by one, in no array");
    if (!given.is_object())
      throw noRequest("it is no object");
    readMembers(given, twins, request);
  } catch (const std::bad_alloc &) {
    request.id = request.id.value_or(nullptr);
    request.fault = Fault(FaultCode::internal, "there is not enough memory");
  } catch (const Fault &fault) {
    // Who sent it may wait for an answer: what is no request is no notification
    // either.
    if (!request.id)
      request.id = Given();
    request.fault = fault;
  }
  return request;
}

} // namespace ZelDebugDialog::protocol
