#include "editor/textfields.h"

#include "editor/icons.h"
#include "editor/placement.h"
#include "editor/valueedit.h"
#include "toolkit/literals.h"

#include <QBoxLayout>
#include <QFileDialog>
#include <QToolButton>

using settings::SettingRow;
using toolkit::operator""_L1;
using vocabulary::SettingKind;

TextField::TextField()
    : edit(new ValueEdit)
{
    setKeys(edit);
    edit->setPalette(icons::mutedText()); // what stands there instead of a value
    connect(edit, &QLineEdit::textEdited, this, &TextField::typed);
}

bool TextField::isFor(const SettingRow& row) const
{
    return row.setting->kind == SettingKind::Text || !row.fitsItsField();
}

void TextField::show(const SettingRow& row)
{
    edit->setValue(row.written.value_or(QString()));
    edit->setPlaceholderText(QObject::tr("not set")); // what that means is said below
    if (!edit->hasFocus())
        edit->setCursorPosition(0); // its beginning says more than its end
}

QToolButton* TextField::addButton(const QString& name)
{
    auto* const button = new QToolButton;
    button->setToolTip(name);
    button->setAccessibleName(name);
    button->setFocusPolicy(Qt::StrongFocus);
    layout()->addWidget(button);
    return button;
}

PathField::PathField()
{
    QToolButton* const button = addButton(QObject::tr("Choose a folder"));
    button->setText(QStringLiteral("..."));
    connect(button, &QToolButton::clicked, this, &PathField::choose);
}

bool PathField::isFor(const SettingRow& row) const
{
    return row.setting->kind == SettingKind::Path;
}

void PathField::show(const SettingRow& row)
{
    TextField::show(row);
    endsInSlash = row.isAbsent() ? row.key == "zelmora.language.basedir"_L1 : row.written->endsWith(QLatin1Char('/'));
}

void PathField::choose()
{
    QFileDialog dialog(window(), QObject::tr("Choose a folder"), edit->text());
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    settleOnScreen(dialog);
    if (dialog.exec() != QDialog::Accepted)
        return;
    emit chosen(dialog.selectedFiles().value(0) + (endsInSlash ? QStringLiteral("/") : QString()));
}

SecretField::SecretField()
{
    edit->setEchoMode(QLineEdit::Password);
    QToolButton* const button = addButton(QObject::tr("Show the value"));
    button->setIcon(icons::eye(palette()));
    button->setCheckable(true);
    connect(button, &QToolButton::toggled, edit,
            [this](bool isShown) { edit->setEchoMode(isShown ? QLineEdit::Normal : QLineEdit::Password); });
}

bool SecretField::isFor(const SettingRow& row) const
{
    return row.setting->kind == SettingKind::Secret;
}
