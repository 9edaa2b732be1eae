// How a delimited file is to be read: its encoding and its separator.
#pragma once

#include "exchange/text_file.h"
#include "formkit/widgets.h"

#include <functional>

// Every control carries its own name as object name.
struct FileFormatControls {
    QRadioButton* EncodingCP1251;
    QRadioButton* EncodingUTF8;
    QRadioButton* SeparatorSemi;
    QRadioButton* SeparatorComma;
    QRadioButton* SeparatorTab;
    QRadioButton* SeparatorSpace;
    QRadioButton* SeparatorCustom;
    QLineEdit* CustomSepValue;

    QString separator() const;
    TextEncoding encoding() const;
    /// What a file is taken to be until the user says otherwise.
    void chooseUsualFormat();
    void chooseEncoding(TextEncoding encoding);
    /// Calls for every change of the encoding or of the separator in force.
    void onChange(QObject* receiver, const std::function<void()>& changed) const;

protected:
    QWidget* encodingGroup();
    QWidget* separatorGroup();
};
