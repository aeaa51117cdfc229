// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "GSettingsGroup.h"

namespace {

using Schema = std::unique_ptr<GSettingsSchema, GRelease<g_settings_schema_unref>>;
using SchemaKey = std::unique_ptr<GSettingsSchemaKey, GRelease<g_settings_schema_key_unref>>;
using Strings = std::unique_ptr<char *, GRelease<g_strfreev>>;
using Variant = std::unique_ptr<GVariant, GRelease<g_variant_unref>>;

Schema schemaNamed(const char *name)
{
    return Schema(
        g_settings_schema_source_lookup(g_settings_schema_source_get_default(), name, TRUE));
}

QStringList listOf(const Strings &strings)
{
    QStringList list;
    for (char **text = strings.get(); *text != nullptr; ++text)
        list += QString::fromUtf8(*text);
    return list;
}

} // namespace

bool GSettingsGroup::hasSchema(const char *schema)
{
    return g_settings_schema_source_get_default() != nullptr && schemaNamed(schema);
}

GSettingsGroup::GSettingsGroup(const char *schema)
    : m_settings(g_settings_new(schema))
    , m_schema(schemaNamed(schema))
{}

GSettingsGroup::GSettingsGroup(const char *schema, const QByteArray &path)
    : m_settings(g_settings_new_with_path(schema, path.constData()))
    , m_schema(schemaNamed(schema))
{}

QByteArrayList GSettingsGroup::keys() const
{
    const Strings names(g_settings_schema_list_keys(m_schema.get()));
    QByteArrayList keys;
    for (char **name = names.get(); *name != nullptr; ++name)
        keys += *name;
    return keys;
}

QStringList GSettingsGroup::texts(const char *key) const
{
    const Variant value(g_settings_get_value(m_settings.get(), key));
    if (g_variant_is_of_type(value.get(), G_VARIANT_TYPE_STRING))
        return {QString::fromUtf8(g_variant_get_string(value.get(), nullptr))};
    if (!g_variant_is_of_type(value.get(), G_VARIANT_TYPE_STRING_ARRAY))
        return {};
    return listOf(Strings(g_variant_dup_strv(value.get(), nullptr)));
}

bool GSettingsGroup::isOn(const char *key) const
{
    return g_settings_get_boolean(m_settings.get(), key) != FALSE;
}

unsigned GSettingsGroup::number(const char *key) const
{
    return g_settings_get_uint(m_settings.get(), key);
}

QString GSettingsGroup::summary(const char *key) const
{
    const SchemaKey schemaKey(g_settings_schema_get_key(m_schema.get(), key));
    const char *const summary = g_settings_schema_key_get_summary(schemaKey.get());
    return QString::fromUtf8(summary != nullptr ? summary : key);
}

void GSettingsGroup::setText(const char *key, const QString &text)
{
    if (texts(key) != QStringList(text))
        g_settings_set_string(m_settings.get(), key, text.toUtf8().constData());
}

void GSettingsGroup::setTexts(const char *key, const QStringList &texts)
{
    if (this->texts(key) == texts)
        return;
    QByteArrayList encoded;
    std::vector<const char *> pointers;
    for (const auto &text : texts)
        encoded += text.toUtf8();
    for (const auto &text : encoded)
        pointers.push_back(text.constData());
    pointers.push_back(nullptr);
    g_settings_set_strv(m_settings.get(), key, pointers.data());
}

void GSettingsGroup::reset(const char *key)
{
    g_settings_reset(m_settings.get(), key);
}

void GSettingsGroup::sync()
{
    g_settings_sync();
}
