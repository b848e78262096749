#include "Features.h"

#include <algorithm>
#include <filesystem>
#include <memory>
#include <optional>
#include <set>

#include "../vocabulary/AI_Vocabulary.h"
#include "Uri.h"

namespace stratagem::server {

namespace tok = stratagem::token;

namespace {

// Protocol enumerations.
enum CompletionKind
{
    kItemFunction = 3,
    kItemValue = 12,
    kItemKeyword = 14,
    kItemFile = 17,
    kItemFolder = 19,
    kItemEnumMember = 20,
    kItemConstant = 21
};

enum SymbolKind
{
    kSymbolFile = 1,
    kSymbolModule = 2,
    kSymbolNamespace = 3,
    kSymbolFunction = 12,
    kSymbolConstant = 14
};

int const kFirstWordSID = 100;
int const kLastWordSID = 3499;
int const kLastTypeCode = AI_PT_TAUNT_ID;

char const *const kCommandKeywords[] = {"defrule", "defconst", "load", "load-random"};
char const *const kDirectives[] = {"load-if-defined", "load-if-not-defined", "else", "end-if"};
char const *const kConnectives[] = {"not", "and", "or", "xor", "nand", "nor", "xnor"};

std::string Name(unsigned int sid) { return static_cast<char const *>(AI_String(sid)); }

AI_CFunction const *FunctionFor(unsigned int sid)
{
    AI_CFunction const *fact = AI_Fact(sid);
    return fact ? fact : AI_Action(sid);
}

std::vector<int> ParamsOf(AI_CFunction const &function)
{
    CArray<int, int> const &params = function.GetParams();
    std::vector<int> types;
    for (INT_PTR i = 0; i < params.GetSize(); ++i)
        types.push_back(params[i]);
    return types;
}

// An integer the type accepts, the nearest to 0 of the few tried; none
// when it takes no integers.
std::optional<int> SampleInteger(int type)
{
    for (int value : {0, 1, -1, 2})
        if (AI_IsOfType(type, value))
            return value;
    return std::nullopt;
}

Json Markdown(std::string const &text) { return {{"kind", "markdown"}, {"value", text}}; }

Json Item(std::string const &label, int kind, std::string const &detail, Json const &edit)
{
    Json item = {{"label", label}, {"kind", kind}};
    if (!detail.empty())
        item["detail"] = detail;
    if (!edit.is_null())
        item["textEdit"] = {{"range", edit}, {"newText", label}};
    return item;
}

bool Precedes(Range const &range, Range const &position)
{
    return range.endLine < position.line || (range.endLine == position.line && range.endColumn < position.column);
}

// Every constant the strategy defines, by name, with its definitions;
// with `last`, only those of the files read up to that one, and in that
// one only those defined before `before`: a file is read whole before the
// files it loads, so the constants of those come too late for it.
std::map<std::string, std::vector<std::pair<FileReport const *, ConstantDefinition const *>>>
ConstantsOf(CheckReport const *report, FileReport const *last = nullptr, Range const *before = nullptr)
{
    std::map<std::string, std::vector<std::pair<FileReport const *, ConstantDefinition const *>>> constants;
    if (!report)
        return constants;
    for (FileReport const &file : report->files) {
        for (ConstantDefinition const &constant : file.constants)
            if (&file != last || !before || Precedes(constant.commandRange, *before))
                constants[constant.name].push_back({&file, &constant});
        if (&file == last)
            break;
    }
    return constants;
}

bool Contains(Range const &range, Cursor cursor)
{
    auto const key = [](int line, int column) { return std::make_pair(line, column); };
    return !(key(cursor.line, cursor.column) < key(range.line, range.column))
        && !(key(range.endLine, range.endColumn) < key(cursor.line, cursor.column));
}

int OutlineSymbolKind(OutlineKind kind)
{
    switch (kind) {
    case OutlineKind::Rule:
        return kSymbolFunction;
    case OutlineKind::Constant:
        return kSymbolConstant;
    case OutlineKind::Load:
        return kSymbolFile;
    case OutlineKind::LoadRandom:
        return kSymbolModule;
    case OutlineKind::Block:
        return kSymbolNamespace;
    }
    return kSymbolFunction;
}

Json OutlineSymbol(Text const &text, OutlineItem const &item)
{
    Json symbol = {{"name", item.name.empty() ? std::string("(unnamed)") : item.name},
                   {"kind", OutlineSymbolKind(item.kind)},
                   {"range", ToJson(text, item.range)},
                   {"selectionRange", ToJson(text, item.selectionRange)}};
    if (!item.detail.empty())
        symbol["detail"] = item.detail;
    Json children = Json::array();
    for (OutlineItem const &child : item.children)
        children.push_back(OutlineSymbol(text, child));
    if (!children.empty())
        symbol["children"] = children;
    return symbol;
}

}  // namespace

VocabularyWords const &VocabularyWords::Get()
{
    static VocabularyWords const words = [] {
        VocabularyWords w;
        for (unsigned int sid = kFirstWordSID; sid <= static_cast<unsigned int>(kLastWordSID); ++sid) {
            if (AI_IsFact(sid))
                w.facts.push_back(sid);
            else if (AI_IsAction(sid))
                w.actions.push_back(sid);
            else if (AI_IsDefine(sid))
                w.defines.push_back(sid);
            else if (AI_IsParam(sid))
                w.params.push_back(sid);
        }
        return w;
    }();
    return words;
}

Features::Features(DocumentStore &documents, Workspace const &workspace)
    : m_documents(documents), m_workspace(workspace)
{}

Text Features::TextOf(std::string const &path) const
{
    if (Document const *document = m_documents.FindPath(path))
        return document->text;
    std::string bytes;
    int error = 0;
    if (!m_documents.Read(path, bytes, error))
        return Text();
    return Text(std::move(bytes));
}

std::function<Json(LoadStep const &)> Features::StepLocator() const
{
    auto texts = std::make_shared<std::map<std::string, Text>>();
    return [this, texts](LoadStep const &step) {
        std::string const path = m_workspace.PathOf(step.file);
        auto found = texts->find(path);
        if (found == texts->end())
            found = texts->emplace(path, TextOf(path)).first;
        Json const position = ToJson(found->second.ToPosition(step.line - 1, step.column - 1));
        return Json {{"uri", PathToUri(path)}, {"range", {{"start", position}, {"end", position}}}};
    };
}

Features::Target Features::Locate(Json const &params)
{
    Target target;
    std::string const uri = params.at("textDocument").at("uri").get<std::string>();
    Position const position = PositionFromJson(params.at("position"));
    target.document = m_documents.Find(uri);
    if (target.document)
        target.cursor = ToCursor(target.document->text, position);
    return target;
}

// ---- hover -------------------------------------------------------------------

std::string Features::HoverText(Document &document, Token const &token)
{
    auto const constants = ConstantsOf(m_workspace.ContextOf(document.path).report);
    auto const constant = constants.find(token.text);
    if (constant != constants.end()) {
        std::string text;
        for (auto const &[file, definition] : constant->second)
            text += "`" + token.text + "` = " + std::to_string(definition->value) + " (defined at " + file->file + ":"
                + std::to_string(definition->nameRange.line) + ")\n\n";
        return text;
    }
    unsigned int const sid = AI_Symbol(token.text.c_str());
    if (AI_CFunction const *function = sid ? FunctionFor(sid) : nullptr) {
        std::string text = std::string(AI_IsFact(sid) ? "fact" : "action") + "\n```\n" + Signature(sid) + "\n```\n";
        for (int type : ParamsOf(*function))
            text += "- `" + ParamTypeName(type) + "`: " + AcceptedValues(type) + "\n";
        return text;
    }
    if (AI_IsParam(sid)) {
        std::string types;
        for (int type = 1; type <= kLastTypeCode; ++type)
            if (AI_IsOfType(type, sid))
                types += (types.empty() ? "`" : ", `") + ParamTypeName(type) + "`";
        return "`" + token.text + "`: parameter word of type " + types + ", SID " + std::to_string(sid);
    }
    if (AI_IsDefine(sid)) {
        int value = 0;
        SettingsField const *field = DefineField(sid, value);
        std::string const test
            = field ? "`" + std::string(field->pszName) + "` is " + std::to_string(value) : "a game setting";
        return "`" + token.text + "`: define word, holds when " + test;
    }
    return {};
}

Json Features::Hover(Json const &params)
{
    Target const target = Locate(params);
    if (!target.document)
        return nullptr;
    std::vector<Token> const tokens = DocumentStore::TokensAround(*target.document, target.cursor.line);
    Token const *token = TokenAt(tokens, target.cursor);
    if (!token || token->code != tok::Symbol)
        return nullptr;
    std::string const text = HoverText(*target.document, *token);
    if (text.empty())
        return nullptr;
    return {{"contents", Markdown(text)}, {"range", ToJson(target.document->text, token->range)}};
}

// ---- completion --------------------------------------------------------------

Json Features::CompletionItems(CursorContext const &context, Document const &document)
{
    VocabularyWords const &words = VocabularyWords::Get();
    Json const edit = context.prefix.empty() ? Json() : ToJson(document.text, context.prefixRange);
    Json items = Json::array();
    auto const keywords = [&](auto const &list) {
        for (char const *word : list)
            items.push_back(Item(word, kItemKeyword, "", edit));
    };
    auto const functions = [&](std::vector<unsigned int> const &sids) {
        for (unsigned int sid : sids)
            items.push_back(Item(Name(sid), kItemFunction, Signature(sid), edit));
    };
    switch (context.place) {
    case Place::Command:
        keywords(kCommandKeywords);
        break;
    case Place::Directive:
        keywords(kDirectives);
        break;
    case Place::Condition:
        functions(words.facts);
        keywords(kConnectives);
        break;
    case Place::Action:
        functions(words.actions);
        break;
    case Place::Define:
        for (unsigned int sid : words.defines) {
            int value = 0;
            SettingsField const *field = DefineField(sid, value);
            std::string const detail = field ? std::string(field->pszName) + " = " + std::to_string(value) : "";
            items.push_back(Item(Name(sid), kItemEnumMember, detail, edit));
        }
        break;
    case Place::Argument: {
        std::vector<int> const types = ParamsOf(*FunctionFor(context.function));
        if (context.argument < 0 || context.argument >= static_cast<int>(types.size()))
            break;
        int const type = types[context.argument];
        std::string const accepted = ParamTypeName(type) + ": " + AcceptedValues(type);
        for (unsigned int sid : words.params)
            if (AI_IsOfType(type, sid))
                items.push_back(Item(Name(sid), kItemEnumMember, accepted, edit));
        if (std::optional<int> const sample = SampleInteger(type)) {
            FileContext const strategy = m_workspace.ContextOf(document.path);
            for (auto const &[name, definitions] : ConstantsOf(strategy.report, strategy.file, &context.prefixRange))
                if (AI_IsOfType(type, definitions.front().second->value))
                    items.push_back(
                        Item(name, kItemConstant, "= " + std::to_string(definitions.front().second->value), edit));
            // The integer range, told by an entry that inserts one of its
            // values: a client that inserts an entry's label inserts a value.
            items.push_back(Item(std::to_string(*sample), kItemValue, accepted, edit));
        }
        break;
    }
    case Place::LoadString:
        return FileItems(context, document);
    case Place::Nothing:
        break;
    }
    return items;
}

// Script files beside the document (or in the folder the prefix names),
// written as a load names them: relative, without the extension the
// loader adds.
Json Features::FileItems(CursorContext const &context, Document const &document)
{
    namespace fs = std::filesystem;
    std::string const extension = fs::path(document.path).extension().string();
    std::size_t const slash = context.prefix.rfind('/');
    std::string const folder = slash == std::string::npos ? "" : context.prefix.substr(0, slash + 1);
    Range range = context.prefixRange;
    range.column += static_cast<int>(folder.size());
    Json const edit = ToJson(document.text, range);
    Json items = Json::array();
    std::error_code error;
    fs::directory_iterator entries(fs::path(DirectoryOf(document.path)) / folder, error);
    for (; !error && entries != fs::directory_iterator(); entries.increment(error)) {
        fs::path const &path = entries->path();
        std::error_code typeError;
        if (entries->is_directory(typeError)) {
            items.push_back(Item(path.filename().string() + "/", kItemFolder, "", edit));
        } else if (path.extension() == extension && NormalPath(path.string()) != document.path) {
            items.push_back(Item(path.stem().string(), kItemFile, path.filename().string(), edit));
        }
    }
    return items;
}

Json Features::Completion(Json const &params)
{
    Target const target = Locate(params);
    if (!target.document)
        return Json::array();
    std::vector<Token> const tokens = DocumentStore::TokensAround(*target.document, target.cursor.line);
    CursorContext const context = ContextAt(tokens, target.cursor);
    return {{"isIncomplete", false}, {"items", CompletionItems(context, *target.document)}};
}

// ---- signature help ------------------------------------------------------------

Json Features::SignatureHelp(Json const &params)
{
    Target const target = Locate(params);
    if (!target.document)
        return nullptr;
    std::vector<Token> const tokens = DocumentStore::TokensAround(*target.document, target.cursor.line);
    CursorContext const context = ContextAt(tokens, target.cursor);
    if (context.place != Place::Argument)
        return nullptr;
    std::string const label = Signature(context.function);
    Json parameters = Json::array();
    std::size_t from = label.find(' ');
    for (int type : ParamsOf(*FunctionFor(context.function))) {
        std::string const name = ParamTypeName(type);
        std::size_t const at = from == std::string::npos ? std::string::npos : label.find(name, from);
        Json const documentation = AcceptedValues(type);
        if (at == std::string::npos) {
            parameters.push_back({{"label", name}, {"documentation", documentation}});
            continue;
        }
        parameters.push_back({{"label", {at, at + name.size()}}, {"documentation", documentation}});
        from = at + name.size();
    }
    int const active = std::min<int>(context.argument, std::max<int>(static_cast<int>(parameters.size()) - 1, 0));
    return {{"signatures", {{{"label", label}, {"parameters", parameters}, {"activeParameter", active}}}},
            {"activeSignature", 0},
            {"activeParameter", active}};
}

// ---- definition and references ---------------------------------------------------

Json Features::ConstantLocations(std::string const &path, std::string const &name, bool definitions, bool uses)
{
    Json locations = Json::array();
    CheckReport const *report = m_workspace.ContextOf(path).report;
    if (!report)
        return locations;
    for (FileReport const &file : report->files) {
        std::string const filePath = m_workspace.PathOf(file.file);
        Text const text = TextOf(filePath);
        auto const add = [&](Range const &range) {
            locations.push_back({{"uri", PathToUri(filePath)}, {"range", ToJson(text, range)}});
        };
        if (definitions)
            for (ConstantDefinition const &constant : file.constants)
                if (constant.name == name)
                    add(constant.nameRange);
        if (uses)
            for (NamedRange const &use : file.constantUses)
                if (use.name == name)
                    add(use.range);
    }
    return locations;
}

Json Features::Definition(Json const &params)
{
    Target const target = Locate(params);
    if (!target.document)
        return nullptr;
    FileContext const context = m_workspace.ContextOf(target.document->path);
    if (context.file) {
        for (LoadReference const &load : context.file->loads) {
            if (!Contains(load.stringRange, target.cursor))
                continue;
            Json const start = ToJson(Position {});
            return {{"uri", PathToUri(m_workspace.PathOf(load.target))}, {"range", {{"start", start}, {"end", start}}}};
        }
    }
    std::vector<Token> const tokens = DocumentStore::TokensAround(*target.document, target.cursor.line);
    Token const *token = TokenAt(tokens, target.cursor);
    if (!token || token->code != tok::Symbol)
        return nullptr;
    Json const locations = ConstantLocations(target.document->path, token->text, true, false);
    return locations.empty() ? Json() : locations;
}

Json Features::References(Json const &params)
{
    Target const target = Locate(params);
    if (!target.document)
        return Json::array();
    bool const declarations = params.contains("context") && params["context"].value("includeDeclaration", false);
    std::vector<Token> const tokens = DocumentStore::TokensAround(*target.document, target.cursor.line);
    Token const *token = TokenAt(tokens, target.cursor);
    if (!token || token->code != tok::Symbol)
        return Json::array();
    return ConstantLocations(target.document->path, token->text, declarations, true);
}

// ---- outline and quick fixes -----------------------------------------------------

Json Features::DocumentSymbols(Json const &params)
{
    Document const *document = m_documents.Find(params.at("textDocument").at("uri").get<std::string>());
    Json symbols = Json::array();
    FileReport const *file = document ? m_workspace.ContextOf(document->path).file : nullptr;
    if (!file)
        return symbols;
    for (OutlineItem const &item : file->outline)
        symbols.push_back(OutlineSymbol(document->text, item));
    return symbols;
}

Json Features::CodeActions(Json const &params)
{
    std::string const uri = params.at("textDocument").at("uri").get<std::string>();
    TextRange const range = RangeFromJson(params.at("range"));
    Document const *document = m_documents.Find(uri);
    Json actions = Json::array();
    CheckReport const *report = document ? m_workspace.ContextOf(document->path).report : nullptr;
    if (!report)
        return actions;
    auto const locate = StepLocator();
    for (Diagnostic const &diagnostic : report->diagnostics) {
        if (m_workspace.PathOf(diagnostic.file) != document->path || !Overlaps(document->text, diagnostic.range, range))
            continue;
        bool preferred = true;
        for (Replacement const &fix : diagnostic.fixes) {
            Json const edit = {{"range", ToJson(document->text, fix.range)}, {"newText", fix.text}};
            actions.push_back({{"title", "Replace with '" + fix.text + "'"},
                               {"kind", "quickfix"},
                               {"diagnostics", {ToJson(document->text, diagnostic, locate)}},
                               {"isPreferred", preferred},
                               {"edit", {{"changes", {{uri, {edit}}}}}}});
            preferred = false;
        }
    }
    return actions;
}

}  // namespace stratagem::server
