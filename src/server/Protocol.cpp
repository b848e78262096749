#include "Protocol.h"

#include <tuple>

namespace stratagem::server {

Json ToJson(Position position) { return {{"line", position.line}, {"character", position.character}}; }

Position PositionFromJson(Json const &json)
{
    Position position;
    position.line = json.at("line").get<int>();
    position.character = json.at("character").get<int>();
    if (position.line < 0 || position.character < 0)
        throw Json::other_error::create(0, "negative position", &json);
    return position;
}

TextRange RangeFromJson(Json const &json)
{
    return {PositionFromJson(json.at("start")), PositionFromJson(json.at("end"))};
}

Json ToJson(Text const &text, Range const &range)
{
    Position const start = text.ToPosition(range.line - 1, range.column - 1);
    Position end = text.ToPosition(range.endLine - 1, range.endColumn);
    if (std::tie(end.line, end.character) < std::tie(start.line, start.character))
        end = start;
    return {{"start", ToJson(start)}, {"end", ToJson(end)}};
}

Cursor ToCursor(Text const &text, Position position)
{
    int const line = std::min(position.line, text.LineCount() - 1);
    Position const clamped = line == position.line ? position : Position{line, 1 << 30};
    return {line + 1, text.ByteColumn(clamped) + 1};
}

Json ToJson(Text const &text, Diagnostic const &diagnostic,
            std::function<std::string(std::string const &)> const &uriOf)
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
        for (LoadStep const &step : diagnostic.loadedFrom) {
            Json const position = {{"line", std::max(step.line - 1, 0)}, {"character", std::max(step.column - 1, 0)}};
            related.push_back({{"location", {{"uri", uriOf(step.file)}, {"range", {{"start", position}, {"end", position}}}}},
                               {"message", "loaded from here"}});
        }
        json["relatedInformation"] = related;
    }
    return json;
}

bool Overlaps(Text const &text, Range const &range, TextRange const &other)
{
    Position const start = text.ToPosition(range.line - 1, range.column - 1);
    Position const end = text.ToPosition(range.endLine - 1, range.endColumn);
    auto const key = [](Position p) { return std::make_tuple(p.line, p.character); };
    return !(key(end) < key(other.start)) && !(key(other.end) < key(start));
}

}  // namespace stratagem::server
