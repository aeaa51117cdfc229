// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "SwayHotKeyRegistrar.h"

#include "KeyCodes.h"
#include "ModifierKeys.h"

#include <QJsonArray>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

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

bool run(const QByteArray &command)
{
    const auto answers = SwaySocket::ask(SwayMessage::RunCommand, command).array();
    return !answers.isEmpty() && answers[0]["success"_L1].toBool();
}

} // namespace

SwayHotKeyRegistrar::SwayHotKeyRegistrar()
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
    unregisterHotKey(id);
    const auto kernelCode = KeyCodes::kernelCode(keyCode);
    if (!kernelCode)
        return noSuchKey;
    const auto keys = combination(*kernelCode, keyCode, modifiers);
    if (!run("bindcode --no-repeat " + keys + ' ' + ours.latin1()
             + QByteArray::number(static_cast<int>(id))))
        return noHotKeys;
    m_combinations[id] = keys;
    return 0;
}

void SwayHotKeyRegistrar::unregisterHotKey(HotKeyId id)
{
    const auto known = m_combinations.find(id);
    if (known == m_combinations.end())
        return;
    run("unbindcode --no-repeat " + known->second);
    m_combinations.erase(known);
}

void SwayHotKeyRegistrar::handleEvent(SwayMessage kind, const QJsonDocument &event)
{
    const auto command = event["binding"_L1]["command"_L1].toString();
    if (kind != SwayMessage::BindingEvent || !command.startsWith(ours) || !m_handler)
        return;
    m_handler(static_cast<HotKeyId>(QStringView(command).mid(ours.size()).toInt()));
}
