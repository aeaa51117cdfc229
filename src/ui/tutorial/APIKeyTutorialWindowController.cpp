// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "APIKeyTutorialWindowController.h"

#include "AppRuntime.h"
#include "InterfaceFont.h"
#include "RegularWindow.h"
#include "TextLabel.h"
#include "TutorialTextView.h"
#include "ViewBuilders.h"

#include <QRegularExpression>
#include <QTextCursor>
#include <QTextDocument>
#include <QUrl>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int lineSpacing = 4;
constexpr int paragraphSpacing = 4;

QTextBlockFormat paragraphFormat()
{
    QTextBlockFormat format;
    format.setLineHeight(lineSpacing, QTextBlockFormat::LineDistanceHeight);
    format.setBottomMargin(paragraphSpacing);
    return format;
}

QTextCharFormat baseFormat()
{
    QTextCharFormat format;
    format.setFont(interfaceFont(14));
    return format;
}

QTextCharFormat labelFormat(const QUrl &url)
{
    auto format = baseFormat();
    if (url.isValid()) {
        format.setAnchor(true);
        format.setAnchorHref(url.toString());
        format.setForeground(Palette::color(SemanticColor::Link));
        format.setFontUnderline(true);
    }
    return format;
}

} // namespace

APIKeyTutorialWindowController::APIKeyTutorialWindowController() = default;

APIKeyTutorialWindowController::~APIKeyTutorialWindowController() = default;

void APIKeyTutorialWindowController::show(const QString &title, const QString &body)
{
    if (!m_window)
        buildWindow();
    m_titleLabel->setText(title);
    m_textView->setAccessibleName(title);
    m_textView->setBody(attributedTutorialBody(body));
    m_window->center();
    m_window->bringToFront();
}

QTextDocumentFragment APIKeyTutorialWindowController::attributedTutorialBody(const QString &body)
{
    static const QRegularExpression link(uR"(\[([^\]]+)\]\((https?://[^\s\)]+)\))"_s,
                                         QRegularExpression::UseUnicodePropertiesOption);
    QTextDocument document;
    QTextCursor cursor(&document);
    cursor.setBlockFormat(paragraphFormat());
    qsizetype end = 0;
    for (auto matches = link.globalMatch(body); matches.hasNext();) {
        const auto match = matches.next();
        cursor.insertText(body.sliced(end, match.capturedStart() - end), baseFormat());
        cursor.insertText(match.captured(1),
                          labelFormat(QUrl(match.captured(2), QUrl::StrictMode)));
        end = match.capturedEnd();
    }
    cursor.insertText(body.sliced(end), baseFormat());
    return QTextDocumentFragment(&document);
}

bool APIKeyTutorialWindowController::isVisible() const
{
    return m_window && m_window->isVisible();
}

void APIKeyTutorialWindowController::release()
{
    if (!isVisible())
        m_window.reset();
}

void APIKeyTutorialWindowController::buildWindow()
{
    m_window = std::make_unique<RegularWindow>(AppRuntime::appName + u" API 教程"_s);
    m_window->setMinimumSize(520, 420);
    m_window->resize(680, 620);
    m_titleLabel =
        ViewBuilders::makeLabel({}, interfaceFont(22, QFont::DemiBold), SemanticColor::Label);
    m_textView = new TutorialTextView;
    auto *layout = new QVBoxLayout(m_window.get());
    layout->setContentsMargins(24, 22, 24, 24);
    layout->setSpacing(16);
    layout->addWidget(m_titleLabel);
    layout->addWidget(ViewBuilders::makePanel(m_textView));
}
