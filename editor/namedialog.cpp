#include "editor/namedialog.h"

#include "editor/placement.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

QString askForName(QWidget& widget, const QString& question, const QString& name,
                   const std::function<QString(const QString& name)>& whyNot)
{
    QDialog dialog(widget.window());
    dialog.setWindowTitle(QObject::tr("Settings"));
    auto* const text = new QLabel(question);
    auto* const field = new QLineEdit(name);
    auto* const reason = new QLabel;
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    text->setTextFormat(Qt::PlainText);
    text->setWordWrap(true);
    text->setBuddy(field);
    reason->setTextFormat(Qt::PlainText);
    reason->setWordWrap(true);
    reason->setMinimumHeight(3 * reason->fontMetrics().lineSpacing()); // the box does not grow while one types
    reason->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    field->setAccessibleName(question);
    auto* const layout = new QVBoxLayout(&dialog);
    for (QWidget* const part : std::initializer_list<QWidget*> {text, field, reason, buttons})
        layout->addWidget(part);

    const auto judge = [&] {
        const QString against = whyNot(field->text());
        reason->setText(field->text().isEmpty() || field->text() == name ? QString() : against);
        buttons->button(QDialogButtonBox::Ok)->setEnabled(against.isEmpty());
    };
    QObject::connect(field, &QLineEdit::textChanged, &dialog, judge);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    judge();
    field->selectAll();
    dialog.resize(400, dialog.sizeHint().height());
    settleOnScreen(dialog);
    return dialog.exec() == QDialog::Accepted ? field->text() : QString();
}
