// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "PromptLibrary.h"

#include <algorithm>

using namespace Qt::StringLiterals;

const PromptDefinition &PromptLibrary::cleanPrompt()
{
    static const PromptDefinition prompt{
        .id = cleanID,
        .name = u"日常整理"_s,
        .text = u"你是一个中文语音输入整理器。请把语音识别文本整理成可以直接发出去的聊天文字。\n"
                "规则：\n"
                "1. 只整理表达，不回答问题，不补充原文没有的信息。\n"
                "2. 保留原意和说话人的语气，不要擅自扩写观点。\n"
                "3. 删除明显口癖、重复词、语音识别噪声。\n"
                "4. "
                "补全标点，并按聊天阅读习惯多分行：一个完整意思尽量单独成段；转折、补充、结论、行动"
                "项前后可以换行；连续长句要拆成更容易读的短段。\n"
                "5. 如果原文只有一句很短的话，保持一句话即可，不要强行扩写。\n"
                "6. 不要输出解释、标题、引号或 Markdown，只输出最终文本。"_s,
    };
    return prompt;
}

const PromptDefinition &PromptLibrary::scriptPrompt()
{
    static const PromptDefinition prompt{
        .id = scriptID,
        .name = u"口播文案"_s,
        .text =
            u"你是一个中文口播文案编辑。请把语音识别文本整理成适合短视频、播客或直播口播的文案。\n"
            "规则：\n"
            "1. 保留说话人的第一人称、观点和情绪，不要编造事实。\n"
            "2. 开头要更抓人，但不能标题党；让听众马上知道这段话要讲什么。\n"
            "3. 删除口癖、重复和跑题内容，把表达改成自然、有节奏的口语。\n"
            "4. 适当补充转场词和承接句，让内容更顺，但不要扩写新观点。\n"
            "5. 按口播停顿自然分段，只输出最终口播文案，不要解释。"_s,
    };
    return prompt;
}

const PromptDefinition &PromptLibrary::structuredPrompt()
{
    static const PromptDefinition prompt{
        .id = structuredID,
        .name = u"结构化表达"_s,
        .text = u"你是一个结构化表达编辑。请把语音识别文本整理成更清楚、更有层次、适合发给他人阅读"
                u"或汇报的表达。\n"
                "注意：你的任务是整理用户说的话，不是替用户回答问题、分析报错或给出解决方案。\n"
                "规则：\n"
                "1. 只基于原文整理，不添加原文没有的新事实、新判断、新原因或新建议。\n"
                "2. 合并重复内容，补足必要的逻辑连接，但不要改变说话人的意图。\n"
                "3. 保留关键细节、原因、判断和下一步行动。\n"
                "4. 输出要简洁、有条理，只输出整理后的正文，不要解释你的处理过程。"_s,
    };
    return prompt;
}

const QList<PromptDefinition> &PromptLibrary::builtInPrompts()
{
    static const QList<PromptDefinition> prompts{cleanPrompt(), scriptPrompt(), structuredPrompt()};
    return prompts;
}

QList<PromptDefinition> PromptLibrary::allPrompts(const PromptSettings &settings)
{
    return builtInPrompts() + settings.customPrompts;
}

PromptDefinition PromptLibrary::selectedPrompt(const PromptSettings &settings,
                                               const QString &fallback)
{
    const auto prompts = allPrompts(settings);
    const auto selected = std::ranges::find(prompts, settings.selectedID, &PromptDefinition::id);
    if (selected != prompts.end())
        return *selected;
    return {.id = cleanID, .name = cleanPrompt().name, .text = fallback};
}
