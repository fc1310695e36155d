#include "themes/json_object.h"

#include <rapidjson/reader.h>

#include <algorithm>

#include "support/json_escape.h"
#include "themes/json_source.h"

namespace ravelin {
namespace {

// Hears the events of the reader and reports the members of the outermost object.
class MemberHandler : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, MemberHandler> {
  public:
    MemberHandler(std::string_view text, const JsonSource& source, const JsonMemberVisitor& visit)
        : text_(text), source_(source), visit_(visit) {}

    bool stopped() const { return stopped_; }

    bool Key(const char*, rapidjson::SizeType, bool) {
        if (depth_ != 1) return true;
        keyEnd_ = source_.Tell();
        const auto keyBegin = source_.stringBegin() - 1;
        key_ = text_.substr(keyBegin, keyEnd_ - keyBegin);
        return true;
    }
    // Strings, numbers, true, false and null: the source stands behind them.
    bool Default() { return depth_ > 0 && valueEnds(source_.Tell()); }
    // The source stands at the bracket.
    bool StartObject() { return ++depth_ <= jsonNestingCap; }
    bool StartArray() { return depth_ > 0 && ++depth_ <= jsonNestingCap; }
    bool EndObject(rapidjson::SizeType) { return structureEnds(); }
    bool EndArray(rapidjson::SizeType) { return structureEnds(); }

  private:
    bool structureEnds() {
        --depth_;
        return valueEnds(source_.Tell() + 1);
    }

    bool valueEnds(std::size_t end) {
        if (depth_ != 1) return true;
        auto token = text_.substr(keyEnd_, end - keyEnd_);
        token.remove_prefix(token.find_first_not_of(": \t\r\n"));
        stopped_ = !visit_(JsonText(key_), token);
        return !stopped_;
    }

    std::string_view text_;
    const JsonSource& source_;
    const JsonMemberVisitor& visit_;
    std::size_t depth_ = 0;
    std::string_view key_;  // with its quotes
    std::size_t keyEnd_ = 0;
    bool stopped_ = false;
};

}  // namespace

JsonText::JsonText(std::string_view token) : raw_(token) {
    if (!token.starts_with('"')) return;
    raw_ = token.substr(1, token.size() - 2);
    if (raw_.find('\\') == std::string_view::npos) return;
    std::string& text = unescaped_.emplace();
    for (std::string_view rest = raw_; !rest.empty();) {
        std::size_t taken = resolveJsonEscape(rest, text);
        if (taken == 0) {
            taken = std::max<std::size_t>(std::min(rest.find('\\'), rest.size()), 1);
            text += rest.substr(0, taken);
        }
        rest.remove_prefix(taken);
    }
}

JsonWalk walkJsonObject(std::string_view objectText, const JsonMemberVisitor& visit) {
    JsonSource source(objectText);
    MemberHandler handler(objectText, source, visit);
    // Iterative, so that deep nesting costs a few bytes of heap a level instead of stack frames.
    constexpr unsigned flags = rapidjson::kParseInsituFlag | rapidjson::kParseIterativeFlag;
    const rapidjson::ParseResult result = rapidjson::Reader().Parse<flags>(source, handler);
    if (handler.stopped()) return JsonWalk::stopped;
    return !result.IsError() && source.atEnd() ? JsonWalk::complete : JsonWalk::malformed;
}

}  // namespace ravelin
