#include "editor/taborder.h"

#include <QWidget>

namespace taborder {

namespace {

bool isStop(const QWidget& widget)
{
    return (widget.focusPolicy() & Qt::TabFocus) && !widget.focusProxy();
}

} // namespace

QWidget* stopBefore(QWidget& widget)
{
    QWidget* stop = widget.previousInFocusChain();
    while (stop != &widget && (widget.isAncestorOf(stop) || !isStop(*stop)))
        stop = stop->previousInFocusChain();
    return stop == &widget ? nullptr : stop;
}

QWidget* append(QWidget* stop, QWidget& part)
{
    for (QWidget* const widget : part.findChildren<QWidget*>()) {
        if (!isStop(*widget) || widget->window() != part.window())
            continue; // what a list drops down is a window of its own
        QWidget::setTabOrder(stop, widget);
        stop = widget;
    }
    return stop;
}

} // namespace taborder
