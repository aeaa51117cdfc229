// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "GSettingsKeybindings.h"

#include "AppRuntime.h"
#include "GnomeModule.h"

#include <QCoreApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr auto mediaKeysSchema = "org.gnome.settings-daemon.plugins.media-keys";
constexpr auto entrySchema = "org.gnome.settings-daemon.plugins.media-keys.custom-keybinding";
constexpr auto keyboardSchema = "org.gnome.desktop.peripherals.keyboard";
constexpr auto entryList = "custom-keybindings";
constexpr auto accelerator = "binding";

// Every schema whose keys hold accelerators, be it one or a list of them.
constexpr const char *shortcutSchemas[] = {"org.gnome.desktop.wm.keybindings",
                                           "org.gnome.shell.keybindings",
                                           "org.gnome.mutter.keybindings",
                                           "org.gnome.mutter.wayland.keybindings",
                                           "org.gnome.mutter",
                                           mediaKeysSchema};

struct Entry
{
    HotKeyId id;
    QString path;
    QString name; // as the desktop's settings show it
    QLatin1StringView option;
};

QString pathTo(QLatin1StringView name)
{
    return "/org/gnome/settings-daemon/plugins/media-keys/custom-keybindings/wrenfold-"_L1 + name
        + u'/';
}

const std::vector<Entry> &entries()
{
    static const std::vector<Entry> all{
        {HotKeyId::Main, pathTo("toggle"_L1), u"Wrenfold：开始或停止录音"_s, "--toggle"_L1},
        {HotKeyId::Escape, pathTo("cancel"_L1), u"Wrenfold：取消录音"_s, "--cancel"_L1},
    };
    return all;
}

GSettingsGroup groupOf(const QString &path)
{
    return {entrySchema, path.toUtf8()};
}

const Entry &entryOf(HotKeyId id)
{
    return *std::ranges::find(entries(), id, &Entry::id);
}

// GNOME takes a percent sign for a placeholder.
QString commandOf(const Entry &entry)
{
    const auto program = QCoreApplication::applicationFilePath().toUtf8();
    const std::unique_ptr<char, GRelease<g_free>> quoted(g_shell_quote(program.constData()));
    return QString::fromUtf8(quoted.get()).replace(u'%', u"%%"_s) + u' ' + entry.option;
}

} // namespace

extern "C" Q_DECL_EXPORT GnomeKeybindings *wrenfoldOpenGnomeKeybindings();

GnomeKeybindings *wrenfoldOpenGnomeKeybindings()
{
    static_assert(std::is_same_v<decltype(wrenfoldOpenGnomeKeybindings), GnomeModule::EntryPoint>);
    return GSettingsKeybindings::areThere() ? std::make_unique<GSettingsKeybindings>().release()
                                            : nullptr;
}

bool GSettingsKeybindings::areThere()
{
    return GSettingsGroup::hasSchema(mediaKeysSchema) && GSettingsGroup::hasSchema(entrySchema)
        && GSettingsGroup::hasSchema(keyboardSchema);
}

void GSettingsKeybindings::bind(HotKeyId id, const QString &wanted)
{
    addEntries();
    groupOf(entryOf(id).path).setText(accelerator, wanted);
}

void GSettingsKeybindings::unbind(HotKeyId id)
{
    groupOf(entryOf(id).path).setText(accelerator, {});
}

void GSettingsKeybindings::removeAll()
{
    m_mediaKeys.setTexts(entryList, foreignPaths());
    for (const auto &entry : entries()) {
        auto group = groupOf(entry.path);
        for (const auto &key : group.keys())
            group.reset(key.constData());
    }
    GSettingsGroup::sync();
}

QString GSettingsKeybindings::ownerOf(const Match &isSame) const
{
    for (const auto *const schema : shortcutSchemas) {
        if (!GSettingsGroup::hasSchema(schema))
            continue;
        const GSettingsGroup group(schema);
        for (const auto &key : group.keys())
            if (std::ranges::any_of(group.texts(key.constData()), isSame))
                return group.summary(key.constData());
    }
    return userOwnerOf(isSame);
}

QString GSettingsKeybindings::userOwnerOf(const Match &isSame) const
{
    for (const auto &path : foreignPaths()) {
        const auto group = groupOf(path);
        if (std::ranges::any_of(group.texts(accelerator), isSame))
            return group.texts("command").join(QString());
    }
    return {};
}

KeyRepeat GSettingsKeybindings::keyRepeat() const
{
    const GSettingsGroup keyboard(keyboardSchema);
    return {keyboard.isOn("repeat"), std::chrono::milliseconds(keyboard.number("delay"))};
}

QStringList GSettingsKeybindings::foreignPaths() const
{
    auto paths = m_mediaKeys.texts(entryList);
    paths.removeIf([](const QString &path) {
        return std::ranges::find(entries(), path, &Entry::path) != entries().end();
    });
    return paths;
}

// Both at once: a change of an accelerator is noticed sooner than an entry.
void GSettingsKeybindings::addEntries()
{
    auto paths = foreignPaths();
    for (const auto &entry : entries()) {
        auto group = groupOf(entry.path);
        group.setText("name", entry.name);
        group.setText("command", commandOf(entry));
        paths += entry.path;
    }
    m_mediaKeys.setTexts(entryList, paths);
}
