// Reads and writes the user's settings, and maps the stored drives.
#include "apps/vestra_resave_window/stored_settings.h"

#include <QLocale>

#include "apps/vestra_resave/words.h"
#include "platform/posix/volumes.h"
#include "platform/volumes.h"

namespace vestra::window {

namespace platform = vs::project_resave::platform;

namespace {

// The value at the start of the program, because loading a library changes the variable.
const QByteArray of_environment = qgetenv("VESTRA_DRIVES");

} // namespace

QString stored_settings::language() const {
    const QString of_system = QLocale::system().language() == QLocale::Russian ? "ru" : "en";
    return kept_.value("language", of_system).toString();
}

void stored_settings::set_language(const QString& language) { kept_.setValue("language", language); }

std::vector<stored_settings::drive> stored_settings::drives() const {
    std::vector<drive> all;
    for (const QString& each : kept_.value("drives").toStringList())
        // Only the first "=" separates; a folder's name can contain others.
        all.emplace_back(each.section(u'=', 0, 0), each.section(u'=', 1));
    return all;
}

void stored_settings::set_drives(const std::vector<drive>& drives) {
    QStringList all;
    for (const auto& [letter, folder] : drives) all << letter + u'=' + folder;
    kept_.setValue("drives", all);
}

QStringList stored_settings::recent() const { return kept_.value("recent").toStringList(); }

void stored_settings::add_recent(const QString& project) {
    QStringList all = recent();
    all.removeAll(project);
    all.prepend(project);
    kept_.setValue("recent", all.mid(0, most_recent));
}

QStringList map_drives(const std::vector<stored_settings::drive>& drives) {
    // `reset` maps the drives of this variable. Loading a library has replaced its value by the drives that
    // were mapped then, so the value from the start of the program is restored first.
    qputenv("VESTRA_DRIVES", of_environment);
    QStringList wrong;
    platform::mapped_volumes().reset();
    for (const auto& [letter, folder] : drives) {
        std::string reason;
        if (!platform::add_drive((letter + u'=' + folder).toStdString(), reason))
            wrong << QString::fromStdString(command::say_known(reason));
    }
    return wrong;
}

std::vector<stored_settings::drive> mapped_drives() {
    std::vector<stored_settings::drive> all;
    for (const QString& each :
         QString::fromStdString(platform::mapped_volumes().assignments()).split(u';', Qt::SkipEmptyParts))
        if (each != QStringLiteral("Z=/")) all.emplace_back(each.section(u'=', 0, 0), each.section(u'=', 1));
    return all;
}

} // namespace vestra::window
