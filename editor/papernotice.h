#ifndef ZELMORA_EDITOR_PAPERNOTICE_H
#define ZELMORA_EDITOR_PAPERNOTICE_H

#include <QStyle>
#include <QWidget>

class QLabel;
class QTextEdit;

/// A line below the paper that says why it is not as it should be. A long one takes several, and what has no room in
/// these scrolls; a path breaks anywhere. Hidden while there is nothing to say.
class PaperNotice : public QWidget {
    Q_OBJECT

public:
    explicit PaperNotice(QWidget* parent = nullptr);

    /// @p icon: QStyle::SP_MessageBoxWarning or its like.
    void tell(const QString& text, QStyle::StandardPixmap icon);
    void clear();
    QString text() const;

private:
    void fitHeight();

    QLabel* const picture;
    QTextEdit* const line;
};

#endif
