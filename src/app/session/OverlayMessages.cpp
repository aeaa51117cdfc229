// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "OverlayMessages.h"

#include "ErrorClassification.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

QString textFor(const std::exception_ptr &error)
{
    switch (kindOf(error).value_or(HushwireError::Kind::ServiceFailed)) {
    case HushwireError::Kind::PermissionMissing:
        return u"需要权限"_s;
    case HushwireError::Kind::ResponseFailed:
        return u"识别失败"_s;
    case HushwireError::Kind::PasteFailed:
        return u"粘贴失败"_s;
    default:
        return u"处理失败"_s;
    }
}

QString textFor(ProcessingFailureStage stage)
{
    switch (stage) {
    case ProcessingFailureStage::SpeechRecognition:
        return u"语音识别失败"_s;
    case ProcessingFailureStage::TextPolishing:
        return u"文字整理失败"_s;
    case ProcessingFailureStage::AutoPaste:
        return u"已复制到剪贴板"_s;
    }
    Q_UNREACHABLE();
}

} // namespace

OverlayStage OverlayMessages::recognising()
{
    return {u"正在识别"_s, u"识别较慢"_s};
}

OverlayStage OverlayMessages::polishing()
{
    return {u"正在整理"_s, u"整理较慢"_s};
}

OverlayMessage OverlayMessages::cancelled()
{
    return {u"已取消"_s, 900ms};
}

OverlayMessage OverlayMessages::permissionNeeded()
{
    return {u"需要权限"_s, 1600ms};
}

OverlayMessage OverlayMessages::recordingFailed()
{
    return {u"录音失败"_s, 1800ms};
}

OverlayMessage OverlayMessages::failed(ProcessingFailureStage stage)
{
    return {textFor(stage), 1800ms};
}

OverlayMessage OverlayMessages::failed(const std::exception_ptr &error)
{
    return {textFor(error), 1600ms};
}

QString OverlayMessages::interrupted(RecordingCondition condition)
{
    return condition == RecordingCondition::StorageFull ? u"磁盘已满"_s : u"麦克风已断开"_s;
}
