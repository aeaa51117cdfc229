// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "SoakServices.h"

#include "AppConfig.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

using Manner = ScriptedAnswer::Manner;

QByteArray compact(const QJsonObject &object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

// The answer as one of the five faults makes it, of which `refuses` is the first.
ScriptedAnswer spoilt(ScriptedAnswer answer, const SoakStep &step, SoakFault refuses)
{
    static constexpr Manner cuts[] = {Manner::CloseBefore,
                                      Manner::ResetBefore,
                                      Manner::CloseInTheMiddle,
                                      Manner::ResetInTheMiddle};
    answer.headers.emplace_back("Content-Type", "application/json");
    switch (int(step.fault) - int(refuses)) {
    case 0: // with an echo that must not be logged
        answer.status = step.chance % 2 == 0 ? 503 : 402;
        answer.body = "refused: scripted-voice-key scripted-polish-key " + step.spoken.toUtf8();
        break;
    case 1:
        answer.body = step.chance % 2 == 0 ? "<html>welcome</html>" : R"({"result":{}})";
        break;
    case 2:
        answer.delay = 100ms + std::chrono::milliseconds(step.chance % 900);
        break;
    case 3:
        answer.manner = cuts[step.chance % std::size(cuts)];
        break;
    case 4:
        answer.manner = Manner::Silence;
        break;
    default:
        break;
    }
    return answer;
}

} // namespace

void SoakServices::configure() const
{
    AppConfig config;
    config.volcengine.endpoint = m_server.url(u"/recognize"_s).toString();
    config.volcengine.apiKey = u"scripted-voice-key"_s;
    config.deepSeek.baseURL = m_server.url().toString();
    config.deepSeek.apiKey = u"scripted-polish-key"_s;
    AppConfig::save(config);
}

void SoakServices::begin(const SoakStep &step)
{
    const std::lock_guard lock(m_mutex);
    m_step = step;
    m_recognitions = m_polishings = 0;
    m_hasWritten = false;
}

ScriptedAnswer SoakServices::answer(const RecordedRequest &request)
{
    const std::lock_guard lock(m_mutex);
    auto answer = request.target() == "/recognize" ? recognition(m_step) : polishing(m_step);
    if (request.target() != "/recognize" && !request.body.contains(m_step.spoken.toUtf8()))
        ++m_strays;
    answer.isKept = false;
    return answer;
}

ScriptedAnswer SoakServices::recognition(const SoakStep &step)
{
    ++m_recognitions;
    ScriptedAnswer answer;
    answer.body = compact({{"result"_L1, QJsonObject{{"text"_L1, step.spoken}}}});
    answer.headers = {{"X-Api-Status-Code", "20000000"}};
    const bool takesTime = step.fault == SoakFault::PressesWhileProcessing
        || step.fault == SoakFault::EscapeWhileProcessing || step.fault == SoakFault::EditorCloses;
    if (takesTime)
        answer.delay = 300ms;
    return spoilt(answer, step, SoakFault::RecognitionRefuses);
}

ScriptedAnswer SoakServices::polishing(const SoakStep &step)
{
    ++m_polishings;
    const QJsonObject message{{"role"_L1, "assistant"_L1}, {"content"_L1, step.written}};
    ScriptedAnswer answer;
    answer.body = compact({{"choices"_L1, QJsonArray{QJsonObject{{"message"_L1, message}}}}});
    const bool isUsable = step.fault != SoakFault::PolishingRefuses
        && step.fault != SoakFault::PolishingAnswersWrongly;
    answer.onSent = [this, isUsable] { m_hasWritten = isUsable; };
    return spoilt(answer, step, SoakFault::PolishingRefuses);
}
