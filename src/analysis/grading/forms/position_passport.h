// The card of a position: its norms, its elements and measures, and what they
// have said cycle by cycle.
#pragma once

#include "analysis/grading/position_attributes.h"

#include <QDialog>
#include <QPair>
#include <QVector>

class QComboBox;
class QLabel;
class QLineEdit;
class QTableWidget;

namespace formkit {
class Item;
}

class PositionPassport : public QDialog {
    Q_OBJECT

public:
    explicit PositionPassport(int positionId, QWidget* parent = nullptr);

    /// The norms were stored or reset.
    bool hasChanged() const { return changed_; }

private:
    formkit::Item attributesPage();
    formkit::Item measuresPage();
    formkit::Item marksPage();
    formkit::Item wellsPage();

    void refresh();
    void showAttributes();
    void showCounts();
    void showMarks();
    void showWells();
    void showThermalHistory();
    void showDeformationHistory();

    void takeNorm();
    void save();
    void reset();
    bool takeEntered(PositionAttributes& entered);
    int baseCycle() const;

    int positionId_;
    bool changed_ = false;
    PositionAttributes attributes_;
    std::vector<Norm> norms_;
    QVector<QPair<int, QString>> marks_, wells_; // by name
    QLabel* id_ = nullptr;
    QLabel* depth_ = nullptr;
    QLabel* settlement_ = nullptr;
    QComboBox* norm_ = nullptr;
    QComboBox* cycle_ = nullptr;
    QVector<QLineEdit*> edits_;
    QLabel* markCount_ = nullptr;
    QLabel* wellCount_ = nullptr;
    QLabel* base_ = nullptr;
    QTableWidget* ranges_ = nullptr;
    QTableWidget* counts_ = nullptr;
    QTableWidget* markTable_ = nullptr;
    QTableWidget* wellTable_ = nullptr;
    QTableWidget* thermal_ = nullptr;
    QTableWidget* deformation_ = nullptr;
};
