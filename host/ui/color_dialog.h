// The host's colour dialog: the palette's 255 colours, by layer and by block, or
// any colour.
#pragma once

#include <drawing/prompt_backend.h>

#include <QDialog>
#include <functional>

class QLineEdit;
class QLabel;

class NRX_API ColorDialog : public QDialog {
    Q_OBJECT
public:
    // `trueColor`: other colours than the palette's may be given too.
    ColorDialog(const NcCmColor& start, bool trueColor, bool allowMeta, QWidget* parent = nullptr);

    const NcCmColor& color() const { return color_; }

private:
    void choose(const NcCmColor& color);
    void typed(const QString& text);
    void chooseOther();
    void showColor();

    NcCmColor color_;
    bool trueColor_, allowMeta_;
    QLineEdit* value_; // "5", "ByLayer", "255,0,0"
    QLabel* sample_;
};

// Answers a prompt for a colour by this dialog over the main window.
NRX_API PromptReply askColor(const PromptRequest& request);
