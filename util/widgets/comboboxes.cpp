#include "util/hlibrary.h"

#include <QComboBox>

int HLibrary::comboBoxIndexOf(QComboBox* box, const QString& text)
{
    for (int i = 0; i < box->count(); ++i) {
        if (box->itemText(i) == text)
            return i;
    }
    return -1;
}
