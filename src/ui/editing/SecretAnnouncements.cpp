// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "SecretAnnouncements.h"

#include <QAccessible>
#include <QLineEdit>

#include <optional>

namespace {

struct TextChange
{
    int position;
    QString removed;
    QString inserted;
};

std::optional<TextChange> textChange(const QAccessibleEvent &event)
{
    if (event.type() == QAccessible::TextInserted) {
        const auto &insertion = static_cast<const QAccessibleTextInsertEvent &>(event);
        return TextChange{insertion.changePosition(), {}, insertion.textInserted()};
    }
    if (event.type() == QAccessible::TextRemoved) {
        const auto &removal = static_cast<const QAccessibleTextRemoveEvent &>(event);
        return TextChange{removal.changePosition(), removal.textRemoved(), {}};
    }
    if (event.type() == QAccessible::TextUpdated) {
        const auto &update = static_cast<const QAccessibleTextUpdateEvent &>(event);
        return TextChange{update.changePosition(), update.textRemoved(), update.textInserted()};
    }
    return {};
}

QString dots(const QString &secret)
{
    return {secret.size(), u'•'};
}

bool isSecret(const QAccessibleEvent &event)
{
    const auto *field = qobject_cast<QLineEdit *>(event.object());
    return field && field->echoMode() != QLineEdit::Normal;
}

void announce(QAccessibleEvent *event)
{
    const auto change = isSecret(*event) ? textChange(*event) : std::nullopt;
    QAccessible::installUpdateHandler(nullptr);
    if (change) {
        QAccessibleTextUpdateEvent hidden(
            event->object(), change->position, dots(change->removed), dots(change->inserted));
        QAccessible::updateAccessibility(&hidden);
    } else {
        QAccessible::updateAccessibility(event);
    }
    QAccessible::installUpdateHandler(&announce);
}

} // namespace

void SecretAnnouncements::hide()
{
    [[maybe_unused]] static const auto former = QAccessible::installUpdateHandler(&announce);
}
