// What the tokens around a cursor make of it: the place for completion and
// the function and argument for signature help. `|` marks the cursor.
#include "server/Context.h"
#include "ServerTestSupport.h"

namespace {

using namespace stratagem::server;

class Context : public servertest::Vocabulary
{
protected:
    // The context at the `|` of the text (which is removed); m_tokens and
    // m_cursor hold the tokens and the cursor.
    static CursorContext At(std::string text)
    {
        std::size_t const mark = text.find('|');
        text.erase(mark, 1);
        std::size_t const lineStart = text.rfind('\n', mark == 0 ? 0 : mark - 1);
        m_cursor.line = 1 + static_cast<int>(std::count(text.begin(), text.begin() + mark, '\n'));
        m_cursor.column
            = static_cast<int>(mark - (lineStart == std::string::npos || mark == 0 ? 0 : lineStart + 1)) + 1;
        m_tokens = stratagem::Tokenize(text + "\n");  // as the document store does
        return ContextAt(m_tokens, m_cursor);
    }
    static std::vector<stratagem::Token> m_tokens;
    static Cursor m_cursor;
};
std::vector<stratagem::Token> Context::m_tokens;
Cursor Context::m_cursor;

TEST_F(Context, FindsThePlaceOfTheCursor)
{
    // Rows: text, place, function (for arguments), argument, prefix.
    // clang-format off
    std::tuple<char const *, Place, char const *, int, char const *> const rows[] = {
        {"(|", Place::Command, "", -1, ""}, {"(def|", Place::Command, "", -1, "def"},
        {"(defrule (|", Place::Condition, "", -1, ""}, {"(defrule (food|", Place::Condition, "", -1, "food"},
        {"(defrule (true) (not (|", Place::Condition, "", -1, ""},
        {"(defrule (true) (or (true) (|)) => (train villager))", Place::Condition, "", -1, ""},
        {"(defrule (true) => (|", Place::Action, "", -1, ""},
        {"(defrule (true)\n=>\n    (tr|ain villager))", Place::Action, "", -1, "tr"},
        {"(defrule (true) => (train |", Place::Argument, "train", 0, ""},
        {"(defrule (true) => (train vil|", Place::Argument, "train", 0, "vil"},
        {"(defrule (food-amount |", Place::Argument, "food-amount", 0, ""},
        {"(defrule (food-amount < |", Place::Argument, "food-amount", 1, ""},
        {"(defrule (food-amount < 5|0) => (train villager))", Place::Argument, "food-amount", 1, "5"},
        {"(defrule (true) => (set-goal (x) |", Place::Argument, "set-goal", 1, ""},
        {"#|", Place::Directive, "", -1, ""}, {"#load-if-defined |", Place::Define, "", -1, ""},
        {"#load-if-not-defined GI|", Place::Define, "", -1, "GI"}, {"(load \"|\")", Place::LoadString, "", -1, ""},
        {"(load \"sub/ma|in\")", Place::LoadString, "", -1, "sub/ma"},
        {"(load-random 50 \"a|\" \"b\")", Place::LoadString, "", -1, "a"},
        {"(load \"unterminated|", Place::LoadString, "", -1, "unterminated"}, {"|", Place::Nothing, "", -1, ""},
        {"(defrule (true) => (train villager))|", Place::Nothing, "", -1, ""}, {"; (|", Place::Nothing, "", -1, ""},
        {"(defrule (true) => (unknown-action |", Place::Nothing, "", -1, ""},
        {"(defconst x \"a|\")", Place::Nothing, "", -1, ""}};
    // clang-format on
    for (auto const &[text, place, function, argument, prefix] : rows) {
        CursorContext const context = At(text);
        EXPECT_EQ(place, context.place) << text;
        EXPECT_EQ(prefix, context.prefix) << text;
        if (place == Place::Argument) {
            EXPECT_EQ(AI_Symbol(function), context.function) << text;
            EXPECT_EQ(argument, context.argument) << text;
        }
    }
}

TEST_F(Context, FindsTheTokenUnderTheCursor)
{
    // Rows: text, token ("" for none).
    std::pair<char const *, char const *> const rows[]
        = {{"(|train villager)", "train"},    {"(tra|in villager)", "train"}, {"(train| villager)", "train"},
           {"(train |villager)", "villager"}, {"(train  |  villager)", ""},   {"|", ""},
           {"(load |\"x\")", "\"x\""}};
    for (auto const &[text, expectedToken] : rows) {
        At(text);
        stratagem::Token const *token = TokenAt(m_tokens, m_cursor);
        EXPECT_EQ(std::string(expectedToken), token ? token->text : "") << text;
    }
}

}  // namespace
