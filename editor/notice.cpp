#include "editor/notice.h"

#include "editor/icons.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

namespace {

const int leastTextWidth = 80; ///< whatever word stands in it: the window fits the screen

} // namespace

Notice::Notice(check::Severity severity)
    : label(new QLabel)
    , buttons(new QVBoxLayout)
{
    setFrameShape(StyledPanel);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::AlternateBase);
    auto* const picture = new QLabel;
    const int side = style()->pixelMetric(QStyle::PM_SmallIconSize);
    picture->setPixmap(icons::severity(severity).pixmap(side));
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText); // it may hold what the file holds
    label->setMinimumWidth(leastTextWidth);
    auto* const line = new QHBoxLayout(this);
    line->addWidget(picture);
    line->addWidget(label, 1);
    line->addLayout(buttons);
    hide();
}

QPushButton* Notice::addButton(const QString& text, const std::function<void()>& action)
{
    auto* const button = new QPushButton(text);
    buttons->addWidget(button);
    connect(button, &QPushButton::clicked, this, action);
    return button;
}

void Notice::tell(const QString& text)
{
    const QString breakable =
        QString(text).replace(QLatin1Char('/'), QStringLiteral("/\u200B")); // or a long path is cut
    label->setText(breakable);
    setAccessibleName(text);
    setVisible(!text.isEmpty());
}
