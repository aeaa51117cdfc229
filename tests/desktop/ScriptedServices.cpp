// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "ScriptedServices.h"

#include "AppConfig.h"
#include "WaitUntil.h"

using namespace Qt::StringLiterals;

ScriptedServices::ScriptedServices(const QStringList &options)
{
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(QStringLiteral(WRENFOLD_SCRIPTED_SERVICES), options);
    m_process.waitForReadyRead();
    const auto words = QString::fromUtf8(m_process.readLine()).split(u' ');
    if (words.size() != 2 || words[0] != "listening"_L1)
        qFatal("the scripted services did not start");
    m_address = "http://127.0.0.1:"_L1 + words[1].trimmed();
}

void ScriptedServices::configure(bool hasKeys) const
{
    AppConfig config;
    config.volcengine.endpoint = m_address + "/api/v3/auc/bigmodel/recognize/flash"_L1;
    config.deepSeek.baseURL = m_address;
    if (hasKeys) {
        config.volcengine.apiKey = u"scripted-voice-key"_s;
        config.deepSeek.apiKey = u"scripted-polish-key"_s;
    }
    AppConfig::save(config);
}

QStringList ScriptedServices::requests()
{
    m_output += m_process.readAllStandardOutput();
    return QString::fromUtf8(m_output).split(u'\n', Qt::SkipEmptyParts);
}
