// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "DeepSeekAnswer.h"
#include "Fuzzing.h"
#include "HttpAnswerReader.h"
#include "SecretMasking.h"
#include "VolcengineAnswer.h"

namespace {

HttpResponse answerIn(const QByteArrayList &pieces)
{
    HttpAnswerReader reader;
    for (const auto &piece : pieces)
        reader.take({piece.constData(), static_cast<size_t>(piece.size())});
    reader.takeEnd();
    if (!reader.isComplete())
        return {};
    return {reader.status(), reader.headers(), reader.body()};
}

} // namespace

// A secret on a line of its own, then an answer as it comes.
void fuzz(const QByteArray &input)
{
    const auto end = input.indexOf('\n');
    const auto secret = QString::fromUtf8(input.left(end)).trimmed();
    const auto answer = answerIn({input.mid(end + 1)});
    const auto parted = accepted([&] {
        return answerIn({input.mid(end + 1, 100), input.mid(end + 1).mid(100)});
    });
    require(answer.headers == parted.headers && answer.body == parted.body);
    for (auto *const textOf : {recognisedText, polishedText})
        try {
            const auto text = textOf(answer);
            require(!text.isEmpty() && text == text.trimmed());
        } catch (const LocalizedError &) {
            const auto error = withoutSecrets(std::current_exception(), {secret});
            const auto logged = localizedDescription(error);
            require(secret.isEmpty() || secret.contains(u'*') || logged.startsWith(u"(not shown)")
                    || !logged.toLower().contains(secret.toLower()));
        }
}
