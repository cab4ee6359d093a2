// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>

/// A dialog of the connection wizard. It records whether its window's close button ended it. The
/// Escape key does not count.
class Wizard_Dialog : public QDialog {
public:
    using QDialog::QDialog;

    /// The close button ended the last run.
    [[nodiscard]] bool is_closed_by_user() const { return closed_by_user; }

protected:
    void closeEvent(QCloseEvent* event) override;
    /// The dialog continues, or ends in another way: an earlier close no longer counts.
    void forget_close() { closed_by_user = false; }

private:
    bool closed_by_user = false;
};
