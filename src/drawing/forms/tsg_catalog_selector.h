// Asks for the construction of a thermostabiliser.
#pragma once

#include <QDialog>
#include <optional>

class QComboBox;

class TSGCatalogSelector : public QDialog {
    Q_OBJECT

public:
    /// Reads the catalogue.
    explicit TSGCatalogSelector(QWidget* parent = nullptr);

    /// The chosen construction; nothing in an empty catalogue.
    std::optional<int> catalogId() const;

    /// Shows the dialog over the host's window; nothing when it was closed
    /// without a choice.
    static std::optional<int> choose();

private:
    void fillCatalog();

    QComboBox* catalog_;
};
