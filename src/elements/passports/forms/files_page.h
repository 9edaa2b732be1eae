#pragma once
// The three pictures of an element. They are read when the page is first seen.

#include "elements/passports/element_files.h"
#include "elements/passports/forms/passport_page.h"

class QLabelClickable;

class FilesPage : public PassportPage {
    Q_OBJECT

public:
    explicit FilesPage(PassportRecord& record, QWidget* parent = nullptr);

    void showRecord() override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    void readPictures();
    void choose(PictureSlot slot);
    QLabelClickable* labelOf(PictureSlot slot) const { return labels_[size_t(slot)]; }

    std::array<QLabelClickable*, 3> labels_;
    bool isRead_ = false;
};
