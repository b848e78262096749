#include "Protocol.h"

#include <climits>
#include <tuple>

namespace stratagem::server {

Json ToJson(Position position) { return {{"line", position.line}, {"character", position.character}}; }

int IntegerFrom(Json const &json)
{
    if (!json.is_number_integer())
        throw Json::type_error::create(302, "an integer is expected", &json);
    long long const value = json.is_number_unsigned() && json.get<unsigned long long>() > INT_MAX
        ? static_cast<long long>(INT_MAX) + 1
        : json.get<long long>();
    if (value < INT_MIN || value > INT_MAX)
        throw Json::out_of_range::create(406, "the integer is out of range", &json);
    return static_cast<int>(value);
}

Position PositionFromJson(Json const &json)
{
    Position position;
    position.line = IntegerFrom(json.at("line"));
    position.character = IntegerFrom(json.at("character"));
    if (position.line < 0 || position.character < 0)
        throw Json::other_error::create(501, "negative position", &json);
    return position;
}

TextRange RangeFromJson(Json const &json)
{
    return {PositionFromJson(json.at("start")), PositionFromJson(json.at("end"))};
}

Json ToJson(Text const &text, Range const &range)
{
    Position const start = text.ToPosition(range.line - 1, range.column - 1);
    Position end = text.ToPosition(range.endLine - 1, range.endColumn, true);
    if (std::tie(end.line, end.character) < std::tie(start.line, start.character))
        end = start;
    return {{"start", ToJson(start)}, {"end", ToJson(end)}};
}

Cursor ToCursor(Text const &text, Position position)
{
    int const line = std::min(position.line, text.LineCount() - 1);
    Position const clamped = line == position.line ? position : Position {line, 1 << 30};
    return {line + 1, text.ByteColumn(clamped) + 1};
}

Json ToJson(Text const &text, Diagnostic const &diagnostic, std::function<Json(LoadStep const &)> const &locate)
{
    std::string message = diagnostic.message;
    for (std::string const &hint : diagnostic.hints)
        message += "\n" + hint;
    Json json = {{"range", ToJson(text, diagnostic.range)},
                 {"severity", diagnostic.severity == Severity::Error ? 1 : 2},
                 {"code", diagnostic.code},
                 {"source", "stratagem"},
                 {"message", message}};
    if (!diagnostic.loadedFrom.empty()) {
        Json related = Json::array();
        for (LoadStep const &step : diagnostic.loadedFrom)
            related.push_back({{"location", locate(step)}, {"message", "loaded from here"}});
        json["relatedInformation"] = related;
    }
    return json;
}

bool Overlaps(Text const &text, Range const &range, TextRange const &other)
{
    Position const start = text.ToPosition(range.line - 1, range.column - 1);
    Position const end = text.ToPosition(range.endLine - 1, range.endColumn, true);
    auto const key = [](Position p) { return std::make_tuple(p.line, p.character); };
    return !(key(end) < key(other.start)) && !(key(other.end) < key(start));
}

}  // namespace stratagem::server
