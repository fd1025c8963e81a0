#ifndef ZELMORA_EDITOR_NOTICE_H
#define ZELMORA_EDITOR_NOTICE_H

#include "check/codes.h"

#include <QFrame>

#include <functional>

class QLabel;
class QPushButton;
class QVBoxLayout;

/// A bar above what is shown, that says something about it and what can be done. Hidden while there is nothing to say.
class Notice : public QFrame {
public:
    explicit Notice(check::Severity severity);

    QPushButton* addButton(const QString& text, const std::function<void()>& action);
    /// Shows @p text; hides the bar when it is empty.
    void tell(const QString& text);

private:
    QLabel* const label;
    QVBoxLayout* const buttons;
};

#endif
