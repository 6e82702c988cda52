// What the window remembers from one time to the next: language, drives, recent projects, its place.
#pragma once

#include <QByteArray>
#include <QSettings>
#include <QString>
#include <QStringList>
#include <utility>
#include <vector>

namespace vestra::window {

// Kept in the user's own settings; written at once.
class stored_settings {
public:
    static constexpr int most_recent = 8; // projects

    // "ru" or "en"; at first that of the system.
    QString language() const;
    void set_language(const QString& language);

    // "C" and its folder.
    using drive = std::pair<QString, QString>;
    std::vector<drive> drives() const;
    void set_drives(const std::vector<drive>& drives);

    // Native paths, the last one first.
    QStringList recent() const;
    void add_recent(const QString& project);

    QByteArray value(const QString& name) const { return kept_.value(name).toByteArray(); }
    void set_value(const QString& name, const QByteArray& value) { kept_.setValue(name, value); }

private:
    QSettings kept_{QStringLiteral("vestra"), QStringLiteral("resave-window")};
};

// Makes these folders the drives of the process, beside those of the environment; a wrong one is passed over.
// Returns what is wrong with them, a line each.
QStringList map_drives(const std::vector<stored_settings::drive>& drives);
// What is mapped now, but for the root folder.
std::vector<stored_settings::drive> mapped_drives();

} // namespace vestra::window
