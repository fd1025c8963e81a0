#ifndef ZELMORA_EDITOR_TEXTFIELDS_H
#define ZELMORA_EDITOR_TEXTFIELDS_H

#include "editor/valuefield.h"

class QToolButton;
class ValueEdit;

/// A line for any value.
class TextField : public ValueField {
    Q_OBJECT

public:
    TextField();

    bool isFor(const settings::SettingRow& row) const override;
    bool canShow(const settings::SettingRow&) const override { return true; }
    void show(const settings::SettingRow& row) override;

protected:
    QToolButton* addButton(const QString& name);

    ValueEdit* const edit;
};

/// The same with a button that shows folders to choose from.
class PathField : public TextField {
    Q_OBJECT

public:
    PathField();

    bool isFor(const settings::SettingRow& row) const override;
    void show(const settings::SettingRow& row) override;

private:
    void choose();

    bool endsInSlash = false; ///< a name is put right behind the folder
};

/// The same for a value that is hidden, with a button that shows it.
class SecretField : public TextField {
    Q_OBJECT

public:
    SecretField();

    bool isFor(const settings::SettingRow& row) const override;
};

#endif
