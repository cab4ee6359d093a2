// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>
#include <QString>

#include <memory>

namespace Ui {
class Yes_No_Dialog;
}

/// A question with two answers. Run it with exec(), which ends when an answer hides the dialog;
/// then compare get_result_text() with "OK". Only an exact "OK" is a yes.
class Yes_No_Dialog : public QDialog {
    Q_OBJECT

public:
    Yes_No_Dialog(const QString& question, const QString& ok_caption, const QString& cancel_caption,
                  QWidget* parent = nullptr);
    ~Yes_No_Dialog() override;

    /// "OK", "Cancel", or null while there is no answer.
    [[nodiscard]] QString get_result_text() const { return result_text; }

protected:
    /// Closing by the title bar counts as "Cancel".
    void closeEvent(QCloseEvent* event) override;

private slots:
    void on_pushButton_OK_clicked();
    void on_pushButton_Cancel_clicked();

private:
    QString result_text;
    std::unique_ptr<Ui::Yes_No_Dialog> ui;
};
