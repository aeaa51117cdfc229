// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "SwayHotKeyRegistrar.h"

#include "KeyCodes.h"
#include "KeyNames.h"
#include "ModifierKeys.h"
#include "SwayConfiguration.h"
#include "SwayLeftBindings.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

constexpr int taken = 10;
constexpr int noSuchKey = 2;
constexpr int noHotKeys = -1;
constexpr auto ours = "nop wrenfold "_L1;

constexpr std::pair<quint32, const char *> modifierNames[] = {{StoredModifier::command, "Mod4+"},
                                                              {StoredModifier::shift, "Shift+"},
                                                              {StoredModifier::option, "Mod1+"},
                                                              {StoredModifier::control, "Ctrl+"}};

// A combination as sway writes it; a modifier key on its own needs no modifier.
QByteArray combination(quint32 kernelCode, quint32 keyCode, quint32 modifiers)
{
    QByteArray text;
    for (const auto &[bit, name] : modifierNames)
        if ((modifiers & bit) != 0 && ModifierKeys::find(keyCode) == nullptr)
            text += name;
    return text + QByteArray::number(kernelCode + KeyCodes::displayOffset);
}

} // namespace

SwayHotKeyRegistrar::SwayHotKeyRegistrar(KeyCharacters keyCharacters)
    : m_keyCharacters(std::move(keyCharacters))
{
    m_events.send(SwayMessage::Subscribe, R"(["binding","workspace"])");
    m_events.listen(
        [this](SwayMessage kind, const QJsonDocument &event) { handleEvent(kind, event); });
}

SwayHotKeyRegistrar::~SwayHotKeyRegistrar()
{
    for (const auto id : {HotKeyId::Main, HotKeyId::Escape})
        unregisterHotKey(id);
}

int SwayHotKeyRegistrar::registerHotKey(HotKeyId id, quint32 keyCode, quint32 modifiers)
{
    // Not earlier: a launch that finds another instance running touches nothing.
    if (!std::exchange(m_isSwept, true))
        SwayLeftBindings::sweep();
    unregisterHotKey(id);
    const auto kernelCode = KeyCodes::kernelCode(keyCode);
    if (!kernelCode)
        return noSuchKey;
    const auto command = commandOf(keyCode, modifiers);
    m_takenBy = command.value_or(QString());
    if (command)
        return taken;
    const auto keys = combination(*kernelCode, keyCode, modifiers);
    m_combinations[id] = keys;
    rememberBindings();
    if (bind(id, keys))
        return 0;
    unregisterHotKey(id);
    return noHotKeys;
}

void SwayHotKeyRegistrar::unregisterHotKey(HotKeyId id)
{
    const auto known = m_combinations.find(id);
    if (known == m_combinations.end())
        return;
    SwaySocket::run("unbindcode " + known->second);
    m_combinations.erase(known);
    rememberBindings();
}

bool SwayHotKeyRegistrar::bind(HotKeyId id, const QByteArray &keys)
{
    return SwaySocket::run("bindcode --no-repeat " + keys + ' ' + ours.latin1()
                           + QByteArray::number(static_cast<int>(id)));
}

std::optional<QString> SwayHotKeyRegistrar::commandOf(quint32 keyCode, quint32 modifiers) const
{
    const auto text = SwaySocket::ask(SwayMessage::GetConfig)["config"_L1].toString();
    const auto version = SwaySocket::ask(SwayMessage::GetVersion);
    const QFileInfo file(version["loaded_config_file_name"_L1].toString());
    const bool isModifier = ModifierKeys::find(keyCode) != nullptr;
    return SwayConfiguration(text, file.path())
        .commandOf(keyNames(keyCode, m_keyCharacters(keyCode)), isModifier ? 0 : modifiers);
}

// What is bound survives us; should we crash, the next run finds it here.
void SwayHotKeyRegistrar::rememberBindings() const
{
    QByteArrayList bindings;
    for (const auto &[id, keys] : m_combinations)
        bindings << keys;
    SwayLeftBindings::remember(bindings);
}

void SwayHotKeyRegistrar::handleEvent(SwayMessage kind, const QJsonDocument &event)
{
    // A configuration that is read again knows nothing of our bindings.
    if (kind == SwayMessage::WorkspaceEvent && event["change"_L1].toString() == "reload"_L1)
        for (const auto &[id, keys] : m_combinations)
            static_cast<void>(bind(id, keys));
    const auto command = event["binding"_L1]["command"_L1].toString();
    if (kind != SwayMessage::BindingEvent || !command.startsWith(ours) || !m_handler)
        return;
    m_handler(static_cast<HotKeyId>(QStringView(command).mid(ours.size()).toInt()));
}
