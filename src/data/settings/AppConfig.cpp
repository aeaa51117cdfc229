// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "AppConfig.h"

#include "AppConfigCoding.h"
#include "DataDirectory.h"
#include "PromptLibrary.h"
#include "SecureFile.h"
#include "SystemDefaults.h"

using namespace Qt::StringLiterals;

namespace {

constexpr auto fileName = "config.json"_L1;

} // namespace

AppConfig::AppConfig()
    : polishPrompt(PromptLibrary::cleanPrompt().text)
{}

QUrl AppConfig::configURL()
{
    return QUrl::fromLocalFile(DataDirectory::filePath(fileName));
}

QUrl AppConfig::legacyConfigURL()
{
    return QUrl::fromLocalFile(DataDirectory::legacyFilePath(fileName));
}

AppConfig::LoadResult AppConfig::loadOrCreateTemplate()
{
    DataDirectory::create();
    if (DataDirectory::prepareFile(fileName))
        return {decodeAppConfig(SecureFile::read(configURL().toLocalFile())), false};
    const auto initial = newConfigOfThisMachine();
    save(initial);
    return {initial, true};
}

QString AppConfig::setUnreadableAside()
{
    return DataDirectory::setAside(fileName);
}

void AppConfig::save(const AppConfig &config)
{
    DataDirectory::create();
    SecureFile::replace(configURL().toLocalFile(), encodeAppConfig(config));
}
