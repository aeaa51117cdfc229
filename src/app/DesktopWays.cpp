// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "DesktopWays.h"

#include "WaylandDesktop.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<std::pair<QLatin1StringView, QLatin1StringView>, 8> names{{
    {"hotkey"_L1, "Hotkey"_L1},
    {"escape"_L1, "Escape"_L1},
    {"modifiers"_L1, "Lone modifiers"_L1},
    {"keys"_L1, "Pressed keys"_L1},
    {"clipboard"_L1, "Clipboard"_L1},
    {"overlay"_L1, "Overlay"_L1},
    {"application"_L1, "Program in front"_L1},
    {"monitor"_L1, "Pointer's monitor"_L1},
}};

const auto none = u"none"_s;

struct Way
{
    QString name;
    QString limit = {};
};

DesktopWays described(const QString &session, const std::array<Way, names.size()> &ways)
{
    DesktopWays described{session, {}};
    for (std::size_t i = 0; i < ways.size(); ++i)
        described.parts.append({names[i].first, names[i].second, ways[i].name, ways[i].limit});
    return described;
}

Way hotKeysOfWayland(const QString &hotKeys)
{
    return {hotKeys,
            hotKeys == none ? u"Bind \"wrenfold --toggle\" to a key in the desktop's settings."_s
                            : QString()};
}

Way escapeOfWayland(const QString &hotKeys)
{
    return {hotKeys,
            hotKeys == none ? u"Bind \"wrenfold --cancel\" to a key in the desktop's settings."_s
                            : QString()};
}

Way modifiersOfWayland(const QString &hotKeys)
{
    if (hotKeys == "portal"_L1)
        return {none, u"None can be the hotkey."_s};
    return {hotKeys,
            hotKeys == "kglobalaccel"_L1 ? u"Left and right are the same."_s
                : hotKeys == none        ? u"None can be the hotkey."_s
                                         : QString()};
}

Way keysOfXWayland(const QString &keys)
{
    if (keys == "xtest"_L1)
        return {keys, u"They reach windows of XWayland only."_s};
    if (keys == "xtest,mutter"_L1)
        return {
            keys,
            u"Nothing is pasted while Super, Alt or Shift is held; GNOME shows for some seconds "
            "that the screen is shared."_s};
    return {keys, u"The desktop asks once whether we may."_s};
}

Way keysOfWayland(const QString &keys)
{
    if (keys == "portal"_L1)
        return {keys, u"The desktop asks once whether we may."_s};
    return {
        keys,
        keys == "fake-input"_L1
            ? u"They reach Wayland windows only, and only when the application entry is installed."_s
            : QString()};
}

Way applicationInFront(const QString &windows)
{
    return {windows,
            windows == none ? u"Unknown: Shift + Insert pastes, which nearly all understand."_s
                            : QString()};
}

} // namespace

DesktopWays DesktopWays::ofX11(bool canPressKeys)
{
    return described(u"X11"_s,
                     {{{u"x11"_s},
                       {u"x11"_s},
                       {u"xinput2"_s},
                       {canPressKeys ? u"xtest"_s : none},
                       {u"x11"_s},
                       {u"x11"_s},
                       {u"x11"_s},
                       {u"x11"_s}}});
}

DesktopWays DesktopWays::ofXWayland(const QString &hotKeys, const QString &keys)
{
    const bool isGnome = hotKeys == "gnome-settings"_L1;
    const auto onlyX = u"Only while a window of XWayland has the focus."_s;
    const Way hotKey{hotKeys, hotKeys == "x11"_L1 ? onlyX : QString()};
    const Way lone = hotKeys == "x11"_L1 ? Way{u"xinput2"_s, onlyX}
        : isGnome                        ? Way{hotKeys, u"Not left Super, and not left Control."_s}
                                         : modifiersOfWayland(hotKeys);
    const Way application = keys == "xtest,mutter"_L1
        ? Way{u"x11,at-spi"_s, u"Known where it tells screen readers."_s}
        : Way{u"x11"_s, u"Known for windows of XWayland only."_s};
    return described(u"XWayland"_s,
                     {{hotKey,
                       hotKey,
                       lone,
                       keysOfXWayland(keys),
                       {u"x11"_s},
                       {u"x11"_s},
                       application,
                       {u"x11"_s, u"Of several, it may be another than the pointer's."_s}}});
}

DesktopWays DesktopWays::ofWayland(const QString &hotKeys, const WaylandWays &ways)
{
    const bool isSurface = ways.overlay != none;
    return described(
        u"Wayland"_s,
        {{hotKeysOfWayland(hotKeys),
          escapeOfWayland(hotKeys),
          modifiersOfWayland(hotKeys),
          keysOfWayland(ways.keys),
          {ways.clipboard},
          {ways.overlay, isSurface ? QString() : u"It is a window, which may take the focus."_s},
          applicationInFront(hotKeys == "sway"_L1 ? hotKeys : ways.windows),
          {isSurface ? u"compositor"_s : none, {}}}});
}

QString DesktopWays::summary() const
{
    QString line = "Desktop: "_L1 + session + u'.';
    for (const auto &part : parts)
        line += u' ' + part.name + u'=' + part.way;
    return line;
}
