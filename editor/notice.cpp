#include "editor/notice.h"

#include "editor/icons.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>

Notice::Notice(check::Severity severity)
    : label(new QLabel)
    , line(new QHBoxLayout(this))
{
    setFrameShape(StyledPanel);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::AlternateBase);
    auto* const picture = new QLabel;
    const int side = style()->pixelMetric(QStyle::PM_SmallIconSize);
    picture->setPixmap(icons::severity(severity).pixmap(side));
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText); // it may hold what the file holds
    line->addWidget(picture);
    line->addWidget(label, 1);
    hide();
}

QPushButton* Notice::addButton(const QString& text, const std::function<void()>& action)
{
    auto* const button = new QPushButton(text);
    line->addWidget(button);
    connect(button, &QPushButton::clicked, this, action);
    return button;
}

void Notice::tell(const QString& text)
{
    label->setText(text);
    setAccessibleName(text);
    setVisible(!text.isEmpty());
}
