// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "DesktopWays.h"

#include "WaylandDesktop.h"

#include <array>
#include <initializer_list>

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

// A way, of whose names some lack something.
Way way(const QString &name, std::initializer_list<std::pair<QLatin1StringView, QString>> limits)
{
    for (const auto &[lacking, limit] : limits)
        if (name == lacking)
            return {name, limit};
    return {name};
}

const auto asked = u"The desktop asks once whether we may."_s;
const auto bindCancel = u"Bind \"wrenfold --cancel\" to a key in the desktop's settings."_s;
const auto noLoneModifier = u"None can be the hotkey."_s;

// A portal's shortcuts stay until the user removes them, so none of them is Escape.
QString escapeGivenBy(const QString &hotKeys)
{
    return hotKeys == "portal"_L1 ? u"none"_s : hotKeys;
}

} // namespace

DesktopWays DesktopWays::ofX11(bool canPressKeys)
{
    return described(u"X11"_s,
                     {{{u"x11"_s},
                       {u"x11"_s},
                       {u"xinput2"_s},
                       {canPressKeys ? u"xtest"_s : u"none"_s},
                       {u"x11"_s},
                       {u"x11"_s},
                       {u"x11"_s},
                       {u"x11"_s}}});
}

DesktopWays DesktopWays::ofXWayland(const QString &hotKeys, const QString &keys)
{
    const auto onlyX = u"Only while a window of XWayland has the focus."_s;
    return described(
        u"XWayland"_s,
        {{way(hotKeys, {{"x11"_L1, onlyX}}),
          way(escapeGivenBy(hotKeys), {{"x11"_L1, onlyX}, {"none"_L1, bindCancel}}),
          way(hotKeys,
              {{"x11"_L1, onlyX},
               {"gnome-settings"_L1, u"Not left Super, and not left Control."_s},
               {"portal"_L1, noLoneModifier}}),
          way(keys,
              {{"xtest"_L1, u"They reach windows of XWayland only."_s},
               {"xtest,mutter"_L1,
                u"Nothing is pasted while Super, Alt or Shift is held; GNOME shows for some "
                "seconds that the screen is shared."_s},
               {"xtest,portal"_L1, asked}}),
          {u"x11"_s},
          {u"x11"_s},
          keys == "xtest,mutter"_L1
              ? Way{u"x11,at-spi"_s, u"Known where it tells screen readers."_s}
              : Way{u"x11"_s, u"Known for windows of XWayland only."_s},
          {u"x11"_s, u"Of several, it may be another than the pointer's."_s}}});
}

DesktopWays DesktopWays::ofWayland(const QString &hotKeys, const WaylandWays &ways)
{
    return described(
        u"Wayland"_s,
        {{way(hotKeys,
              {{"none"_L1, u"Bind \"wrenfold --toggle\" to a key in the desktop's settings."_s}}),
          way(escapeGivenBy(hotKeys), {{"none"_L1, bindCancel}}),
          way(hotKeys,
              {{"kglobalaccel"_L1, u"Left and right are the same."_s},
               {"portal"_L1, noLoneModifier},
               {"none"_L1, noLoneModifier}}),
          way(ways.keys,
              {{"fake-input"_L1,
                u"They reach Wayland windows only, and only when the application entry is "
                "installed."_s},
               {"portal"_L1, asked}}),
          {ways.clipboard},
          way(ways.overlay, {{"none"_L1, u"It is a window, which may take the focus."_s}}),
          way(hotKeys == "sway"_L1 ? hotKeys : ways.windows,
              {{"none"_L1, u"Unknown: Shift + Insert pastes, which nearly all understand."_s}}),
          {u"compositor"_s}}});
}

QString DesktopWays::summary() const
{
    QString line = "Desktop: "_L1 + session + u'.';
    for (const auto &part : parts)
        line += u' ' + part.name + u'=' + part.way;
    return line;
}
