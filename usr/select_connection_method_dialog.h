#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class Select_connection_method_Dialog;
}

/// The first step of the connection wizard: serial line or network. One object serves all showings;
/// its radio buttons keep their state between them. Making it opens the event log.
class Select_connection_method_Dialog : public QDialog {
    Q_OBJECT

public:
    explicit Select_connection_method_Dialog(QWidget* parent = nullptr);
    ~Select_connection_method_Dialog() override;

    /// The window's close button ended the last showing. The Escape key does not count.
    [[nodiscard]] bool is_closed_by_user() const { return closed_by_user; }
    /// What the last Continue found; both false before the first one.
    [[nodiscard]] bool is_tcp_ip_selected() const { return tcp_ip_selected; }
    [[nodiscard]] bool is_rs232_selected() const { return rs232_selected; }

protected:
    void closeEvent(QCloseEvent* event) override;

private slots:
    void on_pushButton_continue_clicked();

private:
    bool method_chosen = false;
    bool closed_by_user = false;
    bool tcp_ip_selected = false;
    bool rs232_selected = false;
    std::unique_ptr<Ui::Select_connection_method_Dialog> ui;
};
