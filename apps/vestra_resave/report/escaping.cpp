// Replaces the characters that a page must not have and those that have a meaning in it. Works on the bytes
// of UTF-8, of which none below 128 is a part of another character.
#include "apps/vestra_resave/report/escaping.h"

namespace vestra::command {

namespace {

// Returns the length of a character that must not be in a page; 0 if the character is allowed.
size_t unwanted_at(std::string_view text, size_t at) {
    const auto byte = static_cast<unsigned char>(text[at]);
    if (byte == 0x7F || (byte < ' ' && byte != '\n' && byte != '\t')) return 1;
    // Marks that change the direction of text: with them a name could be shown as another one. All have three
    // bytes, so comparing them as texts compares their numbers.
    const std::string_view three = text.substr(at, 3);
    const bool turns = (three >= "\u202A" && three <= "\u202E") || (three >= "\u2066" && three <= "\u2069");
    return turns ? 3 : 0;
}

} // namespace

std::string escaped(std::string_view utf8) {
    std::string html;
    for (size_t at = 0; at < utf8.size(); ++at) {
        if (const size_t length = unwanted_at(utf8, at)) {
            html += "\uFFFD";
            at += length - 1;
            continue;
        }
        switch (utf8[at]) {
        case '&':
            html += "&amp;";
            break;
        case '<':
            html += "&lt;";
            break;
        case '>':
            html += "&gt;";
            break;
        case '"':
            html += "&quot;";
            break;
        case '\'':
            html += "&#39;";
            break;
        default:
            html += utf8[at];
        }
    }
    return html;
}

std::string escaped_json(std::string_view json) {
    std::string text;
    text.reserve(json.size());
    for (size_t at = 0; at < json.size(); ++at) {
        const std::string_view three = json.substr(at, 3);
        if (const size_t length = unwanted_at(json, at)) {
            text += "\\ufffd";
            at += length - 1;
            // JSON allows these two, but they end a line of a script.
        } else if (three == "\u2028" || three == "\u2029") {
            text += three == "\u2028" ? "\\u2028" : "\\u2029";
            at += 2;
        } else if (json[at] == '<') {
            text += "\\u003c";
        } else if (json[at] == '>') {
            text += "\\u003e";
        } else if (json[at] == '&') {
            text += "\\u0026";
        } else {
            text += json[at];
        }
    }
    return text;
}

} // namespace vestra::command
