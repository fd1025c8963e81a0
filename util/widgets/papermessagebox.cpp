#include "util/paperprompt.h"

#include <QApplication>
#include <QMessageBox>

namespace {

bool showMessageBox(const QString& caption, const QString& text)
{
    if (!qobject_cast<QApplication*>(QCoreApplication::instance()))
        return false;
    QMessageBox::information(nullptr, caption, text);
    return true;
}

} // namespace

extern "C" {
/// The linker takes this file for the sake of this name.
extern const bool zelmora_paper_message_box;
const bool zelmora_paper_message_box = (paperprompt::setMessageBox(showMessageBox), true);
}
