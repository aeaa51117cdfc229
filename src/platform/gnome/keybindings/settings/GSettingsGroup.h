// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayList>
#include <QString>
#include <QStringList>

#include <gio/gio.h>
#include <memory>
#include <vector>

template<auto Release>
struct GRelease
{
    template<typename T>
    void operator()(T *object) const
    {
        Release(object);
    }
};

// The settings of one schema.
class GSettingsGroup final
{
public:
    // Whether this system has a schema of that name: one it has not cannot be opened.
    [[nodiscard]] static bool hasSchema(const char *schema);

    explicit GSettingsGroup(const char *schema);
    // Of a schema that has no place of its own.
    GSettingsGroup(const char *schema, const QByteArray &path);

    [[nodiscard]] QByteArrayList keys() const;
    // The text that a key holds, or its texts; none when it holds something else.
    [[nodiscard]] QStringList texts(const char *key) const;
    [[nodiscard]] bool isOn(const char *key) const;
    [[nodiscard]] unsigned number(const char *key) const;
    // What the key is for, in the user's language if it is known in it, else the key's own name.
    [[nodiscard]] QString summary(const char *key) const;

    // Written soon after, and only what differs.
    void setText(const char *key, const QString &text);
    void setTexts(const char *key, const QStringList &texts);
    // Back to what it is without the user.
    void reset(const char *key);
    // Returns when all groups of this process have been written.
    static void sync();

private:
    std::unique_ptr<GSettings, GRelease<g_object_unref>> m_settings;
    std::unique_ptr<GSettingsSchema, GRelease<g_settings_schema_unref>> m_schema;
};
