#include "editor/message.h"

#include "editor/placement.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QTextDocument>
#include <QTextEdit>

#include <cmath>
#include <memory>

namespace {

/// As wide as a text reads well, and stands in a box on a small screen.
int widestText(const QSize& screen)
{
    return qMin(480, screen.width() * 2 / 3);
}

/// A text to be read, that can be copied as well.
class MessageText : public QTextEdit {
public:
    MessageText(const QString& text, int greatestWidth)
        : widest(greatestWidth)
    {
        setPlainText(text);
        setReadOnly(true);
        setTabChangesFocus(true);
        setAccessibleName(QObject::tr("Message"));
        setFrameShape(NoFrame);
        viewport()->setAutoFillBackground(false);
    }

    /// As wide as its longest line, up to the greatest width, with room for the bar to scroll by, and as high as it is
    /// then.
    QSize sizeHint() const override
    {
        const std::unique_ptr<QTextDocument> copy(document()->clone());
        copy->setTextWidth(-1);
        copy->setTextWidth(qMin<qreal>(std::ceil(copy->idealWidth()), widest));
        return copy->size().toSize() + QSize(style()->pixelMetric(QStyle::PM_ScrollBarExtent), 0);
    }

    QSize minimumSizeHint() const override { return {0, fontMetrics().lineSpacing()}; }

private:
    const int widest;
};

} // namespace

Message::Message(QWidget* window, QStyle::StandardPixmap icon, const QString& text, Buttons buttons,
                 Button defaultButton)
    : QDialog(window)
    , buttonBox(new QDialogButtonBox(buttons))
{
    setWindowTitle(QObject::tr("Settings"));
    setAccessibleName(text); // which is read aloud when it comes
    const QSize room = roomOnScreen(*window);
    auto* const image = new QLabel;
    const int iconSize = style()->pixelMetric(QStyle::PM_MessageBoxIconSize);
    image->setPixmap(style()->standardIcon(icon).pixmap(iconSize));

    auto* const layout = new QGridLayout(this);
    layout->addWidget(image, 0, 0, Qt::AlignTop);
    layout->addWidget(new MessageText(text, widestText(room)), 0, 1);
    layout->addWidget(buttonBox, 1, 0, 1, 2);
    layout->setColumnStretch(1, 1);

    connect(buttonBox, &QDialogButtonBox::clicked, this,
            [this](QAbstractButton* button) { done(buttonBox->standardButton(button)); });
    buttonBox->button(defaultButton)->setDefault(true);
    buttonBox->button(defaultButton)->setFocus();
    resize(sizeHint().boundedTo(room));
    settleOnScreen(*this);
}

void Message::setButtonText(Button button, const QString& text)
{
    buttonBox->button(button)->setText(text);
}
