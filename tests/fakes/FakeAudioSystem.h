// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "AudioSystem.h"
#include "LocalizedError.h"

#include <QFile>

#include <atomic>
#include <thread>

// A sound server whose devices do as they are told. Its recordings are files that hold `content`
// once they are finished. The settings may be changed at any time between two calls. What may wait
// for a real server notes when it was asked on the thread that made this object.
class FakeAudioSystem final : public AudioSystem
{
public:
    QString inputName = QStringLiteral("Fake Microphone");
    // NotDetermined leaves the question open.
    MicrophonePermission permission = MicrophonePermission::Authorized;
    std::shared_ptr<MicrophonePermissionAnswer> permissionAnswer; // to the latest question
    bool canCreate = true;
    bool canPrepare = true;
    bool canRecord = true;
    std::atomic<float> powerDb = -160;
    std::atomic<RecordingCondition> condition = RecordingCondition::Capturing;
    std::atomic<bool> wasAskedOnMainThread = false;
    QByteArray content = QByteArray(44, '\0');

    [[nodiscard]] bool isThere() override { return true; }
    [[nodiscard]] QString defaultInputName() override
    {
        noteThread();
        return inputName;
    }
    [[nodiscard]] std::shared_ptr<MicrophonePermissionAnswer> requestMicrophonePermission() override
    {
        permissionAnswer = std::make_shared<MicrophonePermissionAnswer>();
        if (permission != MicrophonePermission::NotDetermined)
            permissionAnswer->give(permission);
        return permissionAnswer;
    }
    [[nodiscard]] std::unique_ptr<RecordingEngine> createRecording(const QString &path) override
    {
        noteThread();
        if (!canCreate)
            throw LocalizedError(QStringLiteral("The file cannot be created."));
        return std::make_unique<Engine>(*this, path);
    }

private:
    class Engine final : public RecordingEngine
    {
    public:
        Engine(FakeAudioSystem &system, const QString &path)
            : m_system(system)
            , m_file(path)
        {
            if (!m_file.open(QIODevice::WriteOnly | QIODevice::NewOnly))
                throw LocalizedError(m_file.errorString());
        }
        [[nodiscard]] bool prepareToRecord() override { return m_system.canPrepare; }
        [[nodiscard]] bool record() override { return m_system.canRecord; }
        void stop() override {}
        void finish() override
        {
            m_system.noteThread();
            m_file.write(m_system.content);
            m_file.close();
        }
        [[nodiscard]] RecordingCondition condition() const override { return m_system.condition; }
        [[nodiscard]] float averagePowerDb() const override { return m_system.powerDb; }

    private:
        FakeAudioSystem &m_system;
        QFile m_file;
    };

    void noteThread()
    {
        if (std::this_thread::get_id() == m_thread)
            wasAskedOnMainThread = true;
    }

    const std::thread::id m_thread = std::this_thread::get_id();
};
