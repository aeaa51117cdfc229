// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "SwayConfiguration.h"

#include "ModifierKeys.h"

#include <QFile>
#include <QProcess>
#include <QRegularExpression>

#include <algorithm>
#include <utility>
#include <wordexp.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int deepestInclude = 16;
// Stands for modifiers that no hotkey of ours can have.
constexpr quint32 foreignModifier = 0x80000000;

constexpr std::pair<QLatin1StringView, quint32> modifiersByName[] = {
    {"shift"_L1, StoredModifier::shift},
    {"ctrl"_L1, StoredModifier::control},
    {"control"_L1, StoredModifier::control},
    {"mod1"_L1, StoredModifier::option},
    {"alt"_L1, StoredModifier::option},
    {"mod4"_L1, StoredModifier::command},
    {"super"_L1, StoredModifier::command},
    {"logo"_L1, StoredModifier::command},
    {"mod3"_L1, foreignModifier},
    {"mod5"_L1, foreignModifier},
    {"lock"_L1, foreignModifier},
    {"mod2"_L1, foreignModifier}};

// The files that a pattern of the shell's names.
QStringList filesOf(const QString &pattern)
{
    QStringList files;
    wordexp_t words{};
    if (::wordexp(pattern.toLocal8Bit().constData(), &words, WRDE_NOCMD) == 0) {
        for (size_t i = 0; i < words.we_wordc; ++i)
            files << QString::fromLocal8Bit(words.we_wordv[i]);
        ::wordfree(&words);
    }
    return files;
}

} // namespace

SwayConfiguration::SwayConfiguration(const QString &text, QString folder)
    : m_folder(std::move(folder))
{
    read(text, 0);
}

std::optional<QString> SwayConfiguration::commandOf(const QStringList &keys,
                                                    quint32 modifiers) const
{
    for (const auto &key : keys)
        if (const auto found = m_bindings.find({key.toLower(), modifiers});
            found != m_bindings.end())
            return found->second;
    return {};
}

void SwayConfiguration::read(const QString &text, int depth)
{
    const auto lines = QString(text).replace("\\\n"_L1, " "_L1).split(u'\n');
    for (const auto &line : lines)
        readLine(line.trimmed(), depth);
}

void SwayConfiguration::readLine(QString line, int depth)
{
    if (line.startsWith(u'#') || line.isEmpty())
        return;
    for (const auto &[name, value] : m_variables)
        line.replace(name, value);
    auto words = QProcess::splitCommand(line);
    if (words.isEmpty()) // of nothing but quotes
        return;
    const bool opens = line.endsWith(u'{');
    if (line == "}"_L1 && !m_blocks.isEmpty()) {
        m_blocks.removeLast();
    } else if (opens) {
        words.removeLast();
        m_blocks << words.join(u' ');
    } else if (words.size() > 2 && words[0] == "set"_L1 && words[1].startsWith(u'$')) {
        m_variables[words[1]] = line.section(QRegularExpression(u"\\s+"_s), 2);
    } else if (words.size() > 1 && words[0] == "include"_L1 && m_blocks.isEmpty()) {
        include(words[1], depth);
    } else if (m_blocks.isEmpty() || m_blocks == QStringList{u"mode default"_s}) {
        readBinding(words[0], words.mid(1));
    } else if (m_blocks.size() == 1 && m_blocks[0].startsWith("bind"_L1)) {
        readBinding(m_blocks[0].section(u' ', 0, 0), words);
    }
}

void SwayConfiguration::include(const QString &pattern, int depth)
{
    if (depth == deepestInclude)
        return;
    const bool isRelative =
        !pattern.startsWith(u'/') && !pattern.startsWith(u'~') && !pattern.startsWith(u'$');
    const auto files = filesOf(isRelative ? m_folder + u'/' + pattern : pattern);
    for (const auto &name : files) {
        QFile file(name);
        if (file.open(QIODevice::ReadOnly))
            read(QString::fromUtf8(file.readAll()), depth + 1);
    }
}

void SwayConfiguration::readBinding(const QString &command, QStringList words)
{
    while (!words.isEmpty() && words[0].startsWith("--"_L1))
        words.removeFirst();
    const bool isBinding = command == "bindsym"_L1 || command == "bindcode"_L1;
    const bool isUnbinding = command == "unbindsym"_L1 || command == "unbindcode"_L1;
    if (words.isEmpty() || !(isBinding || isUnbinding))
        return;
    quint32 modifiers = 0;
    QString key;
    const auto parts = words[0].toLower().split(u'+');
    for (const auto &part : parts) {
        const auto *const modifier =
            std::ranges::find(modifiersByName, part, [](const auto &row) { return row.first; });
        if (modifier != std::end(modifiersByName))
            modifiers |= modifier->second;
        else
            key = part;
    }
    if (isBinding)
        m_bindings[{key, modifiers}] = words.mid(1).join(u' ');
    else
        m_bindings.erase({key, modifiers});
}
