#include "editor/papernotice.h"

#include <QAbstractTextDocumentLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QTextDocument>
#include <QTextEdit>

#include <cmath>

namespace {

const int mostLines = 6;

} // namespace

PaperNotice::PaperNotice(QWidget* parent)
    : QWidget(parent)
    , picture(new QLabel)
    , line(new QTextEdit)
{
    line->setReadOnly(true);
    line->setTabChangesFocus(true);
    line->setFrameShape(QFrame::NoFrame);
    line->viewport()->setAutoFillBackground(false);
    line->document()->setDocumentMargin(0);
    line->setMinimumWidth(0);
    line->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    line->setAccessibleName(QObject::tr("About the paper"));
    connect(line->document()->documentLayout(), &QAbstractTextDocumentLayout::documentSizeChanged, this,
            &PaperNotice::fitHeight);
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(picture, 0, Qt::AlignTop);
    layout->addWidget(line, 1);
    hide();
}

void PaperNotice::tell(const QString& text, QStyle::StandardPixmap icon)
{
    const int side = style()->pixelMetric(QStyle::PM_SmallIconSize);
    picture->setPixmap(style()->standardIcon(icon).pixmap(side));
    line->setPlainText(text);
    show();
}

void PaperNotice::clear()
{
    line->clear();
    hide();
}

QString PaperNotice::text() const
{
    return line->toPlainText();
}

void PaperNotice::fitHeight()
{
    const int wanted = static_cast<int>(std::ceil(line->document()->size().height()));
    line->setFixedHeight(qMin(wanted, mostLines * line->fontMetrics().lineSpacing()));
}
