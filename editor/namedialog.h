#ifndef ZELMORA_EDITOR_NAMEDIALOG_H
#define ZELMORA_EDITOR_NAMEDIALOG_H

#include <QString>

#include <functional>

class QWidget;

/// Asks for a name over the window of @p widget. @p whyNot says what is against one, which is shown as it is typed;
/// while it says something, the name is not taken. @p name is shown first. Null when none is given.
QString askForName(QWidget& widget, const QString& question, const QString& name,
                   const std::function<QString(const QString& name)>& whyNot);

#endif
