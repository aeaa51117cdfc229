// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "AppConfigCoding.h"

#include "JsonCoding.h"

using namespace Qt::StringLiterals;

namespace {

QJsonObject encode(const VolcengineConfig &config)
{
    return {{"endpoint"_L1, config.endpoint},
            {"apiKey"_L1, config.apiKey},
            {"appKey"_L1, config.appKey},
            {"accessKey"_L1, config.accessKey},
            {"resourceId"_L1, config.resourceId},
            {"modelName"_L1, config.modelName},
            {"enableITN"_L1, config.enableITN},
            {"enablePunctuation"_L1, config.enablePunctuation},
            {"enableDDC"_L1, config.enableDDC}};
}

VolcengineConfig decodeVolcengine(const JsonObjectReader &reader)
{
    return {.endpoint = reader.text("endpoint"_L1),
            .apiKey = reader.text("apiKey"_L1),
            .appKey = reader.text("appKey"_L1),
            .accessKey = reader.text("accessKey"_L1),
            .resourceId = reader.text("resourceId"_L1),
            .modelName = reader.text("modelName"_L1),
            .enableITN = reader.flag("enableITN"_L1),
            .enablePunctuation = reader.flag("enablePunctuation"_L1),
            .enableDDC = reader.flag("enableDDC"_L1)};
}

QJsonObject encode(const DeepSeekConfig &config)
{
    return {
        {"baseURL"_L1, config.baseURL}, {"apiKey"_L1, config.apiKey}, {"model"_L1, config.model}};
}

DeepSeekConfig decodeDeepSeek(const JsonObjectReader &reader)
{
    return {.baseURL = reader.text("baseURL"_L1),
            .apiKey = reader.text("apiKey"_L1),
            .model = reader.text("model"_L1)};
}

QJsonObject encode(const PasteConfig &config)
{
    return {{"restoreClipboardAfterMilliseconds"_L1, config.restoreClipboardAfterMilliseconds}};
}

PasteConfig decodePaste(const JsonObjectReader &reader)
{
    return {.restoreClipboardAfterMilliseconds =
                reader.integer<qint64>("restoreClipboardAfterMilliseconds"_L1)};
}

QJsonObject encode(const HotKeyConfig &config)
{
    return {{"keyCode"_L1, qint64{config.keyCode}},
            {"modifiers"_L1, qint64{config.modifiers}},
            {"displayName"_L1, config.displayName}};
}

HotKeyConfig decodeHotKey(const JsonObjectReader &reader)
{
    return {.keyCode = reader.integer<quint32>("keyCode"_L1),
            .modifiers = reader.integer<quint32>("modifiers"_L1),
            .displayName = reader.text("displayName"_L1)};
}

QJsonObject encode(const PromptSettings &settings)
{
    QJsonArray prompts;
    for (const auto &prompt : settings.customPrompts)
        prompts.append(
            QJsonObject{{"id"_L1, prompt.id}, {"name"_L1, prompt.name}, {"text"_L1, prompt.text}});
    return {{"selectedID"_L1, settings.selectedID}, {"customPrompts"_L1, prompts}};
}

PromptSettings decodePrompts(const JsonObjectReader &reader)
{
    PromptSettings settings{.selectedID = reader.text("selectedID"_L1), .customPrompts = {}};
    const auto prompts = reader.objects("customPrompts"_L1);
    for (const auto &prompt : prompts)
        settings.customPrompts.append({.id = prompt.text("id"_L1),
                                       .name = prompt.text("name"_L1),
                                       .text = prompt.text("text"_L1)});
    return settings;
}

QJsonObject encode(const PersonalDictionaryConfig &config)
{
    return {{"terms"_L1, QJsonArray::fromStringList(config.terms)}};
}

PersonalDictionaryConfig decodePersonalDictionary(const JsonObjectReader &reader)
{
    PersonalDictionaryConfig config;
    config.terms = reader.texts("terms"_L1);
    return config;
}

// Reads a record of the top level when it is there; its default stays otherwise.
template<typename Record>
void decodeOptional(const JsonObjectReader &reader,
                    QLatin1StringView key,
                    Record &record,
                    Record (*decode)(const JsonObjectReader &))
{
    if (reader.has(key))
        record = decode(reader.object(key));
}

} // namespace

QByteArray encodeAppConfig(const AppConfig &config)
{
    const QJsonObject object{{"volcengine"_L1, encode(config.volcengine)},
                             {"deepSeek"_L1, encode(config.deepSeek)},
                             {"paste"_L1, encode(config.paste)},
                             {"hotKey"_L1, encode(config.hotKey)},
                             {"prompts"_L1, encode(config.prompts)},
                             {"personalDictionary"_L1, encode(config.personalDictionary)},
                             {"polishPrompt"_L1, config.polishPrompt}};
    return prettyPrintedJson(QJsonDocument(object));
}

AppConfig decodeAppConfig(const QByteArray &text)
{
    const auto document = parseJson(text);
    const JsonObjectReader reader(document.isObject() ? QJsonValue(document.object())
                                                      : QJsonValue(document.array()));
    AppConfig config;
    decodeOptional(reader, "volcengine"_L1, config.volcengine, decodeVolcengine);
    decodeOptional(reader, "deepSeek"_L1, config.deepSeek, decodeDeepSeek);
    decodeOptional(reader, "paste"_L1, config.paste, decodePaste);
    decodeOptional(reader, "hotKey"_L1, config.hotKey, decodeHotKey);
    decodeOptional(reader, "prompts"_L1, config.prompts, decodePrompts);
    decodeOptional(
        reader, "personalDictionary"_L1, config.personalDictionary, decodePersonalDictionary);
    if (reader.has("polishPrompt"_L1))
        config.polishPrompt = reader.text("polishPrompt"_L1);
    return config;
}
