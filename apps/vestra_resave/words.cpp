// Looks texts up in both tables, and translates what the host and the operating system return in English.
#include "apps/vestra_resave/words.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "reference_host/shell/front_end.h"

namespace vestra::command {

namespace {

// Texts of the host, its readers, and the operating system in English. They reach this program as text, so
// they are recognised by it: a reason that is worded differently stays English. The general pattern for a
// line comes first, since its rest is translated by itself.
constexpr text_row words_of_others[] = {
    {"line %1: %2", "строка %1: %2"},
    {"VESTRA_DRIVES: %1", "VESTRA_DRIVES: %1"},
    {"a drive is mapped twice: \"%1\"", "диск назначен дважды: \"%1\""},
    {"not a drive: \"%1\": %2", "это не диск: \"%1\": %2"},
    {"drive Z: is the root folder and cannot be another one: \"%1\"; take another letter",
     "диск Z: это корневая папка, и назначить ему другую нельзя: \"%1\"; возьмите другую букву"},
    {"--drive cannot be used on Windows, which has its own drives: \"%1\"",
     "--drive не действует в Windows, где диски назначает сама система: \"%1\""},
    {"expected a letter, \"=\" and an existing folder", "нужны буква, \"=\" и существующая папка"},
    {"no folder is assigned to the drive", "диску не назначена папка"},
    {"network paths are not supported on this operating system", "сетевые пути в этой системе неизвестны"},
    {"the path is empty", "путь пуст"},
    {"there is no such file", "такого файла нет"},
    {"is a folder", "это папка"},
    {"a folder is in the way", "мешает папка"},
    {"not a regular file", "это не обычный файл"},
    {"is a device, a pipe or a dangling link", "это устройство, канал или ссылка в никуда"},
    {"the name is not UTF-8", "имя не в UTF-8"},
    {"another program has the file open", "файл открыт другой программой"},
    {"the file changed while it was copied", "файл изменился во время копирования"},
    {"source and target are the same file", "источник и копия совпадают"},
    {"the file ended too soon", "файл кончился раньше времени"},
    {"the file is empty", "файл пуст"},
    {"the file is larger than 256 MiB", "файл больше 256 МиБ"},
    {"the file would be larger than 256 MiB", "файл был бы больше 256 МиБ"},
    {"it is larger than 256 MiB", "он больше 256 МиБ"},
    {"the file is not valid UTF-8", "файл не является текстом UTF-8"},
    {"the file is not a DBF table", "файл не является таблицей DBF"},
    {"there is no root element %1", "нет корневого элемента %1"},
    {"unknown element %1 in %2", "неизвестный элемент %1 в %2"},
    {"it belongs to the source project", "он принадлежит исходному проекту"},
    {"the bundle that owns the element did not copy it",
     "модуль, которому принадлежит элемент, не скопировал его"},
    {"the extension is too short to name its companions",
     "расширение слишком коротко, чтобы назвать сопутствующие файлы"},
    {"its SHA-256 cannot be computed", "не удалось вычислить его SHA-256"},
    {"the folder is not empty", "папка не пуста"},
    {"a dry run cannot rename a file of the real disk", "пробный запуск не переименовывает настоящие файлы"},
    {"a dry run cannot change a file of the real disk", "пробный запуск не меняет настоящие файлы"},
    {"the bundle is loaded already", "модуль уже загружен"},
    {"the library is not a bundle", "библиотека не является модулем"},
    {"the library returned no bundle", "библиотека не выдает модуль"},
    {"no such file", "такого файла нет"},
    {"not a library for this operating system", "это не библиотека для этой операционной системы"},
    {"it needs a library that does not exist", "ей нужна библиотека, которой нет"},
    {"one of its services has a version that this program does not know",
     "версия одной из его служб этой программе неизвестна"},
    {"one of its services could not be started", "одну из его служб не удалось запустить"},
    {"it has no service for a resave", "в нем нет службы для пересохранения"},
    {"it is outside the new project's folder", "он вне папки нового проекта"},
    {"it was there before the bundle copied", "он существовал до копирования модулем"},
    {"the bundle that owns the element gave an impossible count",
     "модуль, которому принадлежит элемент, назвал невозможное число"},
    {"the name of a device or a stream, or not a path", "имя устройства или потока либо вовсе не путь"},
    {"the path has a zero character", "в пути есть нулевой символ"},
    {"the current folder is gone", "текущая папка исчезла"},
    {"two elements have the uuid %1", "у двух элементов один uuid: %1"},
    {"group %1 holds a layer of another scene", "в группе %1 есть слой другой сцены"},
    {"attribute %1 of element %2 is %3, not %4", "атрибут %1 элемента %2: %3, а нужно: %4"},
    {"element %1 has the unknown attribute %2", "у элемента %1 неизвестный атрибут %2"},
    {"bad XML: %1", "неправильный XML: %1"},
    {"expected exactly one root element, %1", "нужен ровно один корневой элемент, %1"},
    {"the root element is %1, not %2", "корневой элемент %1, а не %2"},
    {"unsupported version %1; only %2 is supported", "версия %1 не поддерживается, только %2"},
    {"layer index %1 is out of range: the scene has %2 layers",
     "номер слоя %1 вне допустимых: слоев в сцене: %2"},
    {"element %1 lacks an element %2", "в элементе %1 нет элемента %2"},
    {"elements are nested more than 64 deep", "элементы вложены глубже 64 уровней"},
    {"text inside element %1", "текст внутри элемента %1"},
    {"a second element %1 in %2", "второй элемент %1 в %2"},
    {"the tuples have more than 16777216 elements in total", "в кортежах больше 16777216 элементов"},
    {"an item outside a tuple", "элемент кортежа вне кортежа"},
    {"the first line is not \"TOS 1\"", "первая строка не \"TOS 1\""},
    {"the line does not begin with property, member or data",
     "строка не начинается ни с одного из слов property, member, data"},
    {"expected one space and then a value without leading or trailing spaces",
     "после слова и одного пробела нет текста без пробелов по краям"},
    {"the text is not UTF-8", "текст не в UTF-8"},
    {"properties come first, then members, then data", "сначала идут property, затем member, затем data"},
    {"the path of the member is not relative", "путь файла member не относительный"},
    {"a part of the member's path is empty", "часть пути файла member пуста"},
    {"the member is listed twice or is the file itself", "файл member назван дважды или это сам файл"},
    {"a value is neither a decimal number nor \"-\"", "значение не десятичное число и не \"-\""},
    {"the record does not have one value for each property",
     "в записи не по одному значению на каждое property"},
    {"unknown reason", "причина неизвестна"},
    {"No such file or directory", "нет такого файла или папки"},
    {"Permission denied", "доступ запрещен"},
    {"Operation not permitted", "операция не разрешена"},
    {"No space left on device", "на диске не осталось места"},
    {"Disk quota exceeded", "превышена дисковая квота"},
    {"Read-only file system", "диск доступен только для чтения"},
    {"File exists", "файл уже существует"},
    {"File too large", "файл слишком велик"},
    {"File name too long", "имя файла слишком длинное"},
    {"Not a directory", "это не папка"},
    {"Is a directory", "это папка"},
    {"Directory not empty", "папка не пуста"},
    {"Input/output error", "ошибка ввода-вывода"},
    {"Broken pipe", "канал закрыт"},
    {"Bad file descriptor", "поток закрыт"},
};

bool is_russian() { return shell::settings().language_offset == 0; }

std::string filled(std::string_view text, const std::vector<std::string>& parts) {
    std::string all;
    for (size_t at = 0; at < text.size(); ++at) {
        // "%" can also be a part of a text; a digit after it that is no placeholder gives a number that is
        // too large.
        const size_t part =
            text[at] == '%' && at + 1 < text.size() ? static_cast<size_t>(text[at + 1] - '1') : 9;
        if (part < parts.size() && part < 9)
            all += parts[part], ++at;
        else
            all += text[at];
    }
    return all;
}

// Returns the parts of `text` at the placeholders of the pattern, which are in ascending order; nothing if
// the text does not match.
std::optional<std::vector<std::string>> parts_in(std::string_view text, std::string_view pattern) {
    std::vector<std::string> parts;
    for (size_t place; (place = pattern.find('%')) != std::string_view::npos;) {
        const std::string_view before = pattern.substr(0, place);
        if (!text.starts_with(before)) return std::nullopt;
        text.remove_prefix(before.size());
        pattern.remove_prefix(place + 2);
        // A part ends where the text up to the next placeholder begins, or at the end.
        const std::string_view after = pattern.substr(0, pattern.find('%'));
        const size_t end = after.empty() ? text.size() : text.find(after);
        if (end == std::string_view::npos) return std::nullopt;
        parts.emplace_back(text.substr(0, end));
        text.remove_prefix(end);
    }
    return text == pattern ? std::optional(std::move(parts)) : std::nullopt;
}

} // namespace

std::string say(sentence text, std::initializer_list<std::string> parts) {
    if (!text.row()) return {};
    return filled(is_russian() ? text.row()->russian : text.row()->english, parts);
}

std::string say_known(const std::string& english) {
    if (!is_russian()) return english;
    const auto* const own = std::ranges::find(all_texts, english, &text_row::english);
    if (own != std::end(all_texts)) return std::string(own->russian);
    for (const text_row& row : words_of_others) {
        auto parts = parts_in(english, row.english);
        if (!parts) continue;
        if (!parts->empty()) parts->back() = say_known(parts->back()); // the reason comes last
        return filled(row.russian, *parts);
    }
    return english;
}

} // namespace vestra::command
