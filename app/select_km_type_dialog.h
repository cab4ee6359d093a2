// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>

#include <memory>
#include <string>

namespace Ui {
class Select_KM_type_Dialog;
}

/// Asks which of the three switch models is to be configured. Pro is preselected. Continue hides
/// the dialog, which ends exec(). If it is closed in any other way, get_km_type() stays empty.
class Select_KM_type_Dialog : public QDialog {
    Q_OBJECT

public:
    explicit Select_KM_type_Dialog(QWidget* parent = nullptr);
    ~Select_KM_type_Dialog() override;

    /// The caption of the chosen radio button, "Lite", "Plus" or "Pro"; empty without a choice.
    [[nodiscard]] std::string get_km_type() const { return km_type; }

    [[nodiscard]] bool is_km_type_selected() const;
    /// Keeps the caption of the first checked button, in the order Lite, Plus, Pro.
    void store_km_type();

private slots:
    void on_pushButton_Continue_clicked();

private:
    std::string km_type;
    std::unique_ptr<Ui::Select_KM_type_Dialog> ui;
};
