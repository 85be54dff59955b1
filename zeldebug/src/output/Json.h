// The JSON type of the program: that of the documents.
#ifndef ZELDEBUG_JSON_H
#define ZELDEBUG_JSON_H

#include <string>

#include "documents/Json.h"
#include "output/JsonForward.h"

namespace zeldebug {

/// A text of a document that may have none.
inline Json orNull(const std::string &text) {
  return text.empty() ? Json() : Json(text);
}

} // namespace zeldebug

#endif
