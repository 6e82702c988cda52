// Settings that the window stores: language, drives, recent projects, window position.
#pragma once

#include <QByteArray>
#include <QSettings>
#include <QString>
#include <QStringList>
#include <utility>
#include <vector>

namespace vestra::window {

// Stored in the user's settings file, soon after each change and at the latest by the destructor. A value
// that cannot be written is lost when the program ends; no error is reported.
class stored_settings {
public:
    static constexpr int most_recent = 8; // projects

    // "ru" or "en"; initially that of the operating system.
    QString language() const;
    void set_language(const QString& language);

    // A letter such as "C", and its folder.
    using drive = std::pair<QString, QString>;
    std::vector<drive> drives() const;
    void set_drives(const std::vector<drive>& drives);

    // Native paths, most recent first.
    QStringList recent() const;
    // Moves the project to the front of the list, and drops the oldest one if there are too many.
    void add_recent(const QString& project);

    // Return and set other values by name, such as the geometry of the window.
    QByteArray value(const QString& name) const { return kept_.value(name).toByteArray(); }
    void set_value(const QString& name, const QByteArray& value) { kept_.setValue(name, value); }

private:
    QSettings kept_{QStringLiteral("vestra"), QStringLiteral("resave-window")};
};

// Maps these folders as drives of the process, in addition to those that the environment had when the program
// started; wrong ones are skipped. Drives mapped by an earlier call are removed, so call it only while no
// project is loaded. Returns an error line for each wrong one.
QStringList map_drives(const std::vector<stored_settings::drive>& drives);
// Returns the current mapping without the root folder, Z:, which cannot be changed.
std::vector<stored_settings::drive> mapped_drives();

} // namespace vestra::window
