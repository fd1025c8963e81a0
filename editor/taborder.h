#ifndef ZELMORA_EDITOR_TABORDER_H
#define ZELMORA_EDITOR_TABORDER_H

class QWidget;

namespace taborder {

/// What Tab comes to before @p widget and all that stands in it. Null when there is none.
QWidget* stopBefore(QWidget& widget);

/// Lets Tab go from @p stop to what takes the keyboard in @p part, in the order in which it was put there. Returns the
/// last of these, or @p stop when there is none.
QWidget* append(QWidget* stop, QWidget& part);

} // namespace taborder

#endif
