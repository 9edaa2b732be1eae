#pragma once
// All that is known of one element, in one place. The seven passports are one
// form and seven rows of data and pages.

#include "elements/passports/passport_record.h"

#include <QDialog>
#include <vector>

class PassportPage;
class QPushButton;
class QTabWidget;
struct PassportTab;

class ElementPassport : public QDialog {
    Q_OBJECT

public:
    ElementPassport(FamilyKey family, int elementId, QWidget* parent = nullptr);
    ~ElementPassport() override;

    /// Reads the element anew. Without its row the form is empty and has no title
    /// of its own.
    void load();
    bool isLoaded() const { return record_.row.isRead(); }

private:
    void addPage(PassportPage* page, const PassportTab& tab);
    void apply();
    void exportDocument();
    void showInDrawing();

    PassportRecord record_;
    int elementId_;
    QTabWidget* tabs_;
    std::vector<PassportPage*> pages_;
    QPushButton* apply_;
    QPushButton* export_;
    QPushButton* show_;
};

template <FamilyKey key>
class FamilyPassport : public ElementPassport {
public:
    explicit FamilyPassport(int elementId, QWidget* parent = nullptr) : ElementPassport(key, elementId, parent) { }
};

using DMElementPassport = FamilyPassport<FamilyKey::Dm>;
using TSElementPassport = FamilyPassport<FamilyKey::Ts>;
using RPElementPassport = FamilyPassport<FamilyKey::Rp>;
using GGSElementPassport = FamilyPassport<FamilyKey::Ggs>;
using TSGElementPassport = FamilyPassport<FamilyKey::Tsg>;
using TSSElementPassport = FamilyPassport<FamilyKey::Tss>;
using IGSElementPassport = FamilyPassport<FamilyKey::Igs>;
