#include "exchange/forms/file_format_controls.h"

#include "formkit/layout.h"

using namespace formkit;

QWidget* FileFormatControls::encodingGroup()
{
    return group("Кодировка")
        .column({
            EncodingUTF8 = radio("EncodingUTF8", "UTF-8", true),
            EncodingCP1251 = radio("EncodingCP1251", "Windows 1251"),
            stretch(),
        });
}

QWidget* FileFormatControls::separatorGroup()
{
    // The "o" of the first caption is a Latin one: scripts know the button by it.
    return group("Разделитель")
        .column({
            grid({
                {SeparatorSemi = radio("SeparatorSemi", "Тoчка с запятой (;)", true),
                 SeparatorSpace = radio("SeparatorSpace", "Пробел")},
                {SeparatorComma = radio("SeparatorComma", "Запятая (,)"),
                 SeparatorCustom = radio("SeparatorCustom", "Пользовательский")},
                {SeparatorTab = radio("SeparatorTab", "Табуляция"),
                 CustomSepValue = disabled(within(64, edit("CustomSepValue", "|")))},
            }),
            stretch(),
        });
}

QString FileFormatControls::separator() const
{
    if (SeparatorComma->isChecked())
        return QStringLiteral(",");
    if (SeparatorTab->isChecked())
        return QStringLiteral("\t");
    if (SeparatorSpace->isChecked())
        return QStringLiteral(" ");
    if (SeparatorCustom->isChecked())
        return CustomSepValue->text();
    return QStringLiteral(";");
}

TextEncoding FileFormatControls::encoding() const
{
    return EncodingCP1251->isChecked() ? TextEncoding::Windows1251 : TextEncoding::Utf8;
}

void FileFormatControls::chooseUsualFormat()
{
    chooseEncoding(TextEncoding::Utf8);
    SeparatorSemi->setChecked(true);
}

void FileFormatControls::chooseEncoding(TextEncoding encoding)
{
    (encoding == TextEncoding::Windows1251 ? EncodingCP1251 : EncodingUTF8)->setChecked(true);
}

void FileFormatControls::onChange(QObject* receiver, const std::function<void()>& changed) const
{
    // Of two buttons that change together the one that is checked speaks.
    for (QRadioButton* format :
         {EncodingCP1251, EncodingUTF8, SeparatorSemi, SeparatorComma, SeparatorTab, SeparatorSpace, SeparatorCustom}) {
        QObject::connect(format, &QRadioButton::toggled, receiver, [changed](bool on) {
            if (on)
                changed();
        });
    }
    QObject::connect(SeparatorCustom, &QRadioButton::toggled, CustomSepValue, &QLineEdit::setEnabled);
    QObject::connect(CustomSepValue, &QLineEdit::textChanged, receiver, [changed, custom = SeparatorCustom] {
        if (custom->isChecked())
            changed();
    });
}
