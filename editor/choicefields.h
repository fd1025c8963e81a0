#ifndef ZELMORA_EDITOR_CHOICEFIELDS_H
#define ZELMORA_EDITOR_CHOICEFIELDS_H

#include "editor/valuefield.h"

#include <QSpinBox>

class QCheckBox;
class QComboBox;

/// A check box. It writes "true" and "false".
class FlagField : public ValueField {
    Q_OBJECT

public:
    FlagField();

    bool isFor(const settings::SettingRow& row) const override;
    void show(const settings::SettingRow& row) override;

private:
    QCheckBox* const box;
};

/// One of the words that a setting takes, or absence.
class WordField : public ValueField {
    Q_OBJECT

public:
    explicit WordField(const vocabulary::Setting& setting);

    bool isFor(const settings::SettingRow& row) const override;
    void show(const settings::SettingRow& row) override;

private:
    void tellChoice(int index);

    QComboBox* const list;
    int shownIndex = 0;
};

/// A number to be typed or stepped, or none: that is one below the least, shown as what absence means.
class NumberBox : public QSpinBox {
    Q_OBJECT

public:
    NumberBox(int least, int greatest);

    /// @p text: what is shown then, none that somebody types; @p value: the number that absence is.
    void setAbsence(const QString& text, int value);
    bool isAbsent() const { return value() == minimum(); }
    void stepBy(int steps) override; ///< from absence: from the number that it is

protected:
    QValidator::State validate(QString& text, int& position) const override;
    int valueFromText(const QString& text) const override;

private:
    int absentValue;
};

class NumberField : public ValueField {
    Q_OBJECT

public:
    explicit NumberField(const vocabulary::Setting& setting);

    bool isFor(const settings::SettingRow& row) const override;
    void show(const settings::SettingRow& row) override;

private:
    void tellNumber();

    NumberBox* const box;
};

#endif
