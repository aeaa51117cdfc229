// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "ScriptedHttpServer.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <csignal>
#include <cstdio>

using namespace Qt::StringLiterals;

// SCRIPTED STAND-IN, no recogniser and no language model: serves the wire protocols of the speech
// recognition and of the polishing service on loopback, with answers given on the command line.

namespace {

using std::chrono::milliseconds;

struct Options
{
    QString transcript;
    QString polished; // empty: made from the transcript that was sent
    milliseconds recognitionDelay;
    int recognitionStatus;
    int polishingStatus;
};

Options parsedOptions(const QCoreApplication &application)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        u"A scripted stand-in for the speech recognition and polishing services, on loopback."_s);
    parser.addHelpOption();
    parser.addOptions(
        {{u"transcript"_s, u"What is recognised."_s, u"TEXT"_s, u"this is a scripted transcript"_s},
         {u"polished"_s,
          u"What polishing gives; default: the transcript as a sentence."_s,
          u"TEXT"_s},
         {u"recognition-delay"_s, u"Before the answer, in ms."_s, u"MS"_s, u"0"_s},
         {u"recognition-status"_s, u"HTTP status of the answer."_s, u"N"_s, u"200"_s},
         {u"polishing-status"_s, u"HTTP status of the answer."_s, u"N"_s, u"200"_s}});
    parser.process(application);
    return {parser.value(u"transcript"_s),
            parser.value(u"polished"_s),
            milliseconds(parser.value(u"recognition-delay"_s).toInt()),
            parser.value(u"recognition-status"_s).toInt(),
            parser.value(u"polishing-status"_s).toInt()};
}

// "Some words" becomes "Some words.", with a capital.
QString asSentence(const QByteArray &polishingRequest)
{
    const auto messages = QJsonDocument::fromJson(polishingRequest)["messages"_L1].toArray();
    auto text = messages.last()["content"_L1].toString().section(u'\n', 1).trimmed();
    if (text.isEmpty())
        return text;
    text.replace(0, 1, text.first(1).toUpper());
    return text.back().isPunct() ? text : text + u'.';
}

QByteArray compact(const QJsonObject &object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

QByteArray polishingAnswer(const QString &polished)
{
    const QJsonObject message{{"role"_L1, "assistant"_L1}, {"content"_L1, polished}};
    return compact({{"choices"_L1, QJsonArray{QJsonObject{{"message"_L1, message}}}}});
}

qint64 microseconds(RecordedRequest::Clock::time_point time)
{
    return std::chrono::duration_cast<std::chrono::microseconds>(time.time_since_epoch()).count();
}

void report(const RecordedRequest &request)
{
    std::printf("request method=%s path=%s bytes=%lld received_us=%lld answered_us=%lld\n",
                request.method().constData(),
                request.target().constData(),
                static_cast<long long>(request.body.size()),
                static_cast<long long>(microseconds(request.receivedAt)),
                static_cast<long long>(microseconds(RecordedRequest::Clock::now())));
    std::fflush(stdout);
}

ScriptedAnswer answer(const Options &options, const RecordedRequest &request)
{
    const bool isPolishing = request.target().endsWith("/chat/completions");
    ScriptedAnswer answer;
    answer.status = isPolishing ? options.polishingStatus : options.recognitionStatus;
    if (!isPolishing)
        answer.delay = options.recognitionDelay;
    answer.isKept = false;
    answer.headers = {{"Content-Type", "application/json"}};
    if (isPolishing) {
        const bool isDerived = options.polished.isEmpty();
        answer.body = polishingAnswer(isDerived ? asSentence(request.body) : options.polished);
    } else {
        answer.headers.emplace_back("X-Api-Status-Code", "20000000");
        const QJsonObject result{{"text"_L1, options.transcript}};
        answer.body = compact({{"result"_L1, result}});
    }
    answer.onSent = [request] { report(request); };
    return answer;
}

} // namespace

int main(int argc, char **argv)
{
    // Before any thread starts, so that all of them leave the signals to the wait below.
    sigset_t endings;
    sigemptyset(&endings);
    sigaddset(&endings, SIGTERM);
    sigaddset(&endings, SIGINT);
    pthread_sigmask(SIG_BLOCK, &endings, nullptr);

    const QCoreApplication application(argc, argv);
    const auto options = parsedOptions(application);
    const ScriptedHttpServer server(
        [&options](const RecordedRequest &request) { return answer(options, request); });
    std::printf("listening %d\n", server.port());
    std::fflush(stdout);

    int received = 0;
    sigwait(&endings, &received);
    return 0;
}
