// The JSON type of documents: members keep the order in which they were added.
// Finding a member takes longer the more there are: what others send is read
// into another type.
#ifndef ZELDEBUGDIALOG_PROTOCOL_DOCUMENTS_JSON_H
#define ZELDEBUGDIALOG_PROTOCOL_DOCUMENTS_JSON_H

#include <nlohmann/json.hpp>

#include "documents/JsonForward.h"

#endif
