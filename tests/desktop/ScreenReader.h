// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QList>
#include <QObject>
#include <QRect>
#include <QStringList>

class QDBusMessage;

// The application as a screen reader finds and hears it on the accessibility bus.
class ScreenReader final : public QObject
{
    Q_OBJECT

public:
    struct Element
    {
        QString spoken; // role and name, such as "push button: OK", and " ✓" when it is checked
        QString text; // what can be read in it
        QRect geometry; // on the screen
        bool isFocused = false;
    };

    // Starts the accessibility bus: to be made before the application is started.
    ScreenReader();

    // Every element that is on the screen, parents before children, but not what a closed menu
    // would show; empty while the application has not registered.
    [[nodiscard]] QList<Element> elements() const;
    // Waits for an element whose role and name contain this; a failed expectation when none comes.
    Element await(const QString &spoken) const;

    QStringList newNames; // that elements were said to have got
    QString edits; // what was said to be put into texts and taken out of them

private slots:
    void hear(const QDBusMessage &event);

private:
    struct Object
    {
        QString service;
        QString path;
    };
    [[nodiscard]] QList<Object> children(const Object &object) const;
    [[nodiscard]] QString name(const Object &object) const;
    // The first value that the method answers with; invalid when there is no such method.
    QVariant
    call(const Object &object, const QString &method, const QVariantList &arguments = {}) const;
    void collect(const Object &object, QList<Element> &found) const;

    QDBusConnection m_bus;
};
