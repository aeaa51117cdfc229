// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Base64FileBody.h"
#include "HttpSession.h"
#include "ServiceOutcome.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

class Base64FileBodyTest : public testing::Test
{
protected:
    QString fileOf(qsizetype size)
    {
        m_content.resize(size);
        for (qsizetype i = 0; i < size; ++i)
            m_content[i] = static_cast<char>(i * 31 + i / 256);
        QFile file(m_path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(m_content) == size);
        return m_path;
    }

    QTemporaryDir m_directory;
    const QString m_path = m_directory.filePath(u"audio.wav"_s);
    QByteArray m_content;
};

TEST_F(Base64FileBodyTest, IsPrefixEncodedFileAndSuffixOfExactSize)
{
    for (const qsizetype size : {0, 1, 2, 3, 49'151, 49'152, 49'153, 200'000})
        for (const qint64 step : {7, 4096, 16'384, 1'000'000}) {
            Base64FileBody body(fileOf(size), "{\"a\":\"", "\"}");
            QByteArray read;
            QByteArray part(step, Qt::Uninitialized);
            while (const auto count = body.read(part.data(), step))
                read += part.first(count);
            EXPECT_TRUE(read == "{\"a\":\"" + m_content.toBase64() + "\"}") << size << ' ' << step;
            EXPECT_EQ(body.size(), read.size());
        }
}

TEST_F(Base64FileBodyTest, FailsCleanlyWhenTheFileShrinksWhileItIsSent)
{
    const ScriptedHttpServer server(ScriptedAnswer{});
    HttpSession session;
    const auto send = [&](const auto &body) {
        return serviceOutcome([&] {
            return QString::number(
                session.send({server.url(), {{"Content-Type", "text/plain"}}, body}).status);
        });
    };
    const auto shrinking = [path = fileOf(1'000'000)] {
        auto body = std::make_unique<Base64FileBody>(path, "", "");
        QFile::resize(path, 500'000);
        return body;
    };
    EXPECT_EQ(send(shrinking),
              "other: The file \"" + m_path.toStdString() + "\" could not be read to its end.");
    EXPECT_EQ(server.requests().size(), 0);
    EXPECT_EQ(send([] { return std::make_unique<BytesBody>("next"); }), "= 200");
}
