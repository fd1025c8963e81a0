#ifndef ZELMORA_EDITOR_MESSAGE_H
#define ZELMORA_EDITOR_MESSAGE_H

#include <QDialog>
#include <QDialogButtonBox>
#include <QStyle>

/// A message or a question over a window. Texts from the file stand in it as they are, whatever they look like. It
/// fits the screen: a text that has no room there scrolls, so that the buttons are always in sight.
class Message : public QDialog {
public:
    using Button = QDialogButtonBox::StandardButton;
    using Buttons = QDialogButtonBox::StandardButtons;

    /// @p icon: QStyle::SP_MessageBoxWarning or its like. Return presses @p defaultButton.
    Message(QWidget* window, QStyle::StandardPixmap icon, const QString& text, Buttons buttons = QDialogButtonBox::Ok,
            Button defaultButton = QDialogButtonBox::Ok);

    void setButtonText(Button button, const QString& text);

    /// Shows it until it is answered. Escape, or closing it, is QDialogButtonBox::NoButton.
    Button ask() { return static_cast<Button>(exec()); }

private:
    QDialogButtonBox* const buttonBox;
};

#endif
