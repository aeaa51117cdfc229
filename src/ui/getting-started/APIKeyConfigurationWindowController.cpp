// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "APIKeyConfigurationWindowController.h"

constexpr QStringView APIKeyConfigurationWindowController::doubaoTutorialText =
    uR"(你要找的是豆包语音 API Key。它负责把录音转成文字。

具体步骤：
1. 打开[火山引擎控制台](https://console.volcengine.com/)并登录。第一次登录时，如果平台提示实名认证，按页面指引完成即可。
2. 进入[豆包语音新版控制台](https://console.volcengine.com/speech/new/)。如果新版入口打不开，可以回到火山引擎控制台搜索“豆包语音”。
3. 找到“API Key 管理”“密钥管理”“API 调用”或类似入口。
4. 点击新建 API Key。
5. 创建完成后，立刻复制完整 API Key。注意：API Key 通常只会在新建时完整显示一次，已有 API Key 后续无法再次打开查看完整密钥。
6. 如果担心使用时因为余额不足导致语音识别失败，可以在火山引擎里充值 10 元。Wrenfold 日常语音输入消耗很低，10 元通常可以用很久。
7. 回到 Wrenfold 的“开始使用”窗口，把它粘贴到“豆包语音 API Key”输入框。

注意：
不要把 Access Key、Secret Key、网页登录密码填到这里。Wrenfold 需要的是豆包语音 API Key。)";

constexpr QStringView APIKeyConfigurationWindowController::deepSeekTutorialText =
    uR"(你要找的是 DeepSeek API Key。它负责把识别出来的原始文字整理成更自然、可直接发送的表达。

具体步骤：
1. 打开[DeepSeek 开放平台](https://platform.deepseek.com/)并登录。
2. 进入[API Keys 页面](https://platform.deepseek.com/api_keys)，或者在左侧找到“API Keys”“密钥”或“API 密钥”。
3. 点击创建新的 API Key。
4. 创建后立刻复制完整 Key。有些平台只在创建时完整显示一次。
5. DeepSeek API 会从充值余额或赠送余额中扣费，不是欠费后再补缴。创建 Key 后，请先确认 Billing / 充值页面里有可用余额。
6. 如果担心使用时因为余额不足导致文字整理失败，可以在 DeepSeek 里充值 10 元。Wrenfold 每次只整理一小段语音文本，日常使用消耗很低，10 元通常可以用很久。
7. 回到 Wrenfold 的“开始使用”窗口，把它粘贴到“DeepSeek API Key”输入框。
8. 保存后，Wrenfold 会用它来调用 DeepSeek 整理文本。如果需要核对接口说明，可以打开[DeepSeek API 文档](https://api-docs.deepseek.com/)。

填完 DeepSeek 后再测试：
1. 先把豆包语音 API Key 和 DeepSeek API Key 都填好。
2. 点击保存。
3. 用 Wrenfold 录一句 2 到 3 秒的短语音，比如“你好，这是一次测试”。
4. 如果最后能自动粘贴出整理后的文字，说明两个 Key 都已经配置成功。

如果测试失败：
1. 如果提示“语音识别失败”、火山、豆包、volcengine 或 resource 相关错误，优先检查豆包语音 Key、额度和服务权限。
2. 如果提示“文字整理失败”、DeepSeek 或模型请求失败，优先检查 DeepSeek Key、账户余额和账户状态。
3. 如果提示鉴权失败，通常是 Key 复制不完整、Key 被删除，或者多复制了空格。
4. 如果你重新生成了 Key，旧 Key 可能会失效，需要回到 Wrenfold 重新粘贴保存。
5. 不要把 DeepSeek 网页登录密码填进来，只填 API Key。)";
