// Asks for the construction of a thermostabiliser.
#pragma once

#include "formkit/record_dialog.h"

#include <optional>

class TSGCatalogSelector : public formkit::FieldsDialog {
    Q_OBJECT

public:
    /// Reads the catalogue.
    explicit TSGCatalogSelector(QWidget* parent = nullptr);

    /// The chosen construction; nothing in an empty catalogue.
    std::optional<int> catalogId() const;

    /// Shows the dialog over the host's window; nothing when it was closed
    /// without a choice.
    static std::optional<int> choose();
};
