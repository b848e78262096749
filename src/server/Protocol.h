// Conversions between the checker's records and the protocol's JSON.
#ifndef STRATAGEM_SERVER_PROTOCOL_H
#define STRATAGEM_SERVER_PROTOCOL_H

#include <functional>
#include <string>

#include <nlohmann/json.hpp>

#include "../check/Check.h"
#include "Context.h"
#include "Text.h"

namespace stratagem::server {

using Json = nlohmann::json;

Json ToJson(Position position);
// A JSON integer that fits an int; anything else throws as invalid params.
int IntegerFrom(Json const &json);
Position PositionFromJson(Json const &json);
TextRange RangeFromJson(Json const &json);

// A checker range (1-based, inclusive, bytes) in `text` as a protocol range.
Json ToJson(Text const &text, Range const &range);
// A protocol position in `text` as a checker cursor.
Cursor ToCursor(Text const &text, Position position);

// A diagnostic as publishDiagnostics carries it: hints appended to the
// message, the load chain as related information, each step placed by
// `locate` (it knows the text of the file that loads).
Json ToJson(Text const &text, Diagnostic const &diagnostic, std::function<Json(LoadStep const &)> const &locate);

// True when a checker range and a protocol range share a position.
bool Overlaps(Text const &text, Range const &range, TextRange const &other);

}  // namespace stratagem::server

#endif
