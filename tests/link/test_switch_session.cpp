// SPDX-License-Identifier: MIT

#include "link/link_transport.h"
#include "link/session_traits.h"
#include "link/switch_session.h"
#include "sim/pty_port.h"
#include "tests/link/recording_view.h"
#include "tests/support/virtual_time.h"
#include "tests/support/wait_until.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>

/// The slots of a window that a session's devices and timers call.
class Session_Slots : public QObject {
    Q_OBJECT

public:
    explicit Session_Slots(Switch_Session*& tested_session) : session(tested_session) {
        clock.start();
    }

    /// Each call of a timer: the slot's name and the milliseconds since this object was created.
    QStringList calls;
    QElapsedTimer clock;

public slots:
    void serialRecieve() { session->serialRecieve(); }
    void onReadyRead() { session->onReadyRead(); }
    void get_data_from_TQL_by_serial_port() { keep("report"); }
    void set_current_layout_from_buff() { keep("layout"); }
    void refresh_UI() { keep("refresh"); }
    void is_not_Connected_Message() {
        keep("first answer");
        session->is_not_Connected_Message();
    }

private:
    void keep(const QString& name) { calls.append(name + QString(" %1").arg(clock.elapsed())); }

    Switch_Session*& session;
};

/// The link without a window: opening, ON, OFF, refresh and loss, and the sequences in which the
/// models differ.
class Test_Switch_Session : public QObject {
    Q_OBJECT

private slots:
    void initTestCase_data();
    void init();
    void cleanup();

    void at_first_nothing_is_open_and_nothing_is_said();
    void opening_a_port_leads_its_chunks_to_the_dispatcher();
    void a_second_connection_reads_nothing_twice();
    void another_port_of_the_list_is_opened_and_asked();
    void a_port_that_does_not_open_is_asked_nothing();
    void on_opens_the_port_and_asks();
    void on_replaces_an_open_port();
    void off_before_an_answer();
    void off_after_an_answer();
    void off_without_a_device_only_shows_it();
    void refresh_forgets_and_asks();
    void a_change_of_the_program_itself_is_not_sent_meanwhile();
    void a_vanished_port_is_not_shown_and_on_opens_it_again();
    void a_later_refresh_comes_when_its_time_is_over();
    void a_reset_is_waited_for_as_long_as_the_link_needs();
    void without_a_device_no_reset_is_waited_for();
    void an_adapter_replaces_an_open_port();
    void a_second_adapter_replaces_the_first();
    void a_port_replaces_the_adapter();
    void on_leads_to_the_same_adapter_and_awaits_an_answer();
    void a_switch_that_answered_in_time_ends_nothing();
    void off_closes_the_chosen_device_only();
    void the_end_closes_the_chosen_device_and_keeps_it();

private:
    /// The records of the tested model, of those that not all models have.
    [[nodiscard]] bool is(const char* name) const { return tested == name; }
    [[nodiscard]] QStringList said();
    [[nodiscard]] QByteArray questions() const {
        return is("pro") ? "//rl\r//??\r//BP\r//QA\r" : "//rl\r//??\r//BP\r";
    }
    /// All that the device has received, once it is as long as expected.
    [[nodiscard]] QByteArray received(qsizetype length);
    [[nodiscard]] Link_Transport& transport() { return session->get_transport(); }
    void answer();

    QString tested;
    Session_Traits traits{};
    std::unique_ptr<Virtual_Time> time;
    std::unique_ptr<Pty_Port> device;
    QByteArray all_received;
    QString port;
    std::unique_ptr<Recording_View> view;
    std::unique_ptr<Session_Slots> window;
    Switch_Session* session = nullptr;
    std::unique_ptr<Switch_Session> owned_session;
};

void Test_Switch_Session::initTestCase_data() {
    QTest::addColumn<QString>("model");
    for (const char* name : {"lite", "plus", "pro"}) {
        QTest::newRow(name) << name;
    }
}

void Test_Switch_Session::init() {
    QFETCH_GLOBAL(const QString, model);
    tested = model;
    traits = {.has_audio = is("pro"),
              .controls_fall_with_device = !is("lite"),
              .reports_failed_closing = !is("lite"),
              .clears_terminal_on_port_open = is("pro"),
              .network_notice_order =
                  is("pro") ? Notice_Order::both_first : Notice_Order::layout_first};
    time = std::make_unique<Virtual_Time>();
    device = std::make_unique<Pty_Port>();
    all_received.clear();
    connect(device.get(), &Pty_Port::received, this,
            [this](const QByteArray& bytes) { all_received += bytes; });
    port = device->device_name().mid(QString("/dev/").size());
    view = std::make_unique<Recording_View>();
    window = std::make_unique<Session_Slots>(session);
    owned_session = std::make_unique<Switch_Session>(*view, *window, traits);
    session = owned_session.get();
    session->state.write_enabled = true;
}

void Test_Switch_Session::cleanup() {
    owned_session.reset();
    window.reset();
    view.reset();
    device.reset();
    time.reset();
}

QStringList Test_Switch_Session::said() { return std::exchange(view->records, {}); }

QByteArray Test_Switch_Session::received(qsizetype length) {
    (void)wait_until([&] { return all_received.size() >= length; });
    return std::exchange(all_received, {});
}

void Test_Switch_Session::answer() {
    device->write("KM\n");
    QVERIFY(wait_until([this] { return session->state.km_connected; }));
    view->records.clear();
}

void Test_Switch_Session::at_first_nothing_is_open_and_nothing_is_said() {
    QVERIFY(!transport().is_open());
    QVERIFY(transport().get_serial_port() == nullptr &&
            transport().get_network_socket() == nullptr);
    QCOMPARE(session->get_current_USR_ip(), QString());
    QCOMPARE(said(), QStringList());
    session->writer.send_start_commands();
    QVERIFY(session->state.report_in_progress);
    QCOMPARE(all_received, QByteArray());
}

void Test_Switch_Session::opening_a_port_leads_its_chunks_to_the_dispatcher() {
    session->open_serial_port(port);
    QCOMPARE(transport().get_port_open_count(), 1);
    QCOMPARE(said(), is("pro") ? QStringList{"clear"} : QStringList());
    device->write("KM\n");
    QVERIFY(wait_until([this] { return session->state.km_connected; }));
    const QStringList expected{"answered", "both:KM\n", "km:KM\n",
                               "usb:KM\n", "show:KM\n", "audio:KM\n"};
    QCOMPARE(said(), expected);
    QCOMPARE(session->state.received_buff, QString("KM\n"));
}

void Test_Switch_Session::a_second_connection_reads_nothing_twice() {
    session->open_serial_port(port);
    session->connect_ready_read();
    device->write("KM\n");
    QVERIFY(wait_until([this] { return view->texts_of("show").size() == 2; }));
    QCOMPARE(view->texts_of("show"), (QStringList{"KM\n", ""}));
    QCOMPARE(session->state.received_buff, QString("KM\n"));
}

void Test_Switch_Session::another_port_of_the_list_is_opened_and_asked() {
    session->state.received_buff = "old";
    session->state.km_connected = true;
    session->port_changed(port);
    const QStringList common{"disable", "disconnected", "remove"};
    QCOMPARE(said(), is("pro") ? common + QStringList{"clear"} : common);
    QCOMPARE(session->state.received_buff, QString());
    QVERIFY(!session->state.km_connected);
    QVERIFY(session->state.ui_changes_enabled);
    QCOMPARE(received(questions().size()), questions());
}

void Test_Switch_Session::a_port_that_does_not_open_is_asked_nothing() {
    session->port_changed("pts/no-such-line");
    QCOMPARE(transport().get_port_open_count(), 0);
    QVERIFY(!transport().get_serial_port()->isOpen());
    QVERIFY(session->state.info_report_pending);
    QCOMPARE(view->texts_of("end"), QStringList());
}

void Test_Switch_Session::on_opens_the_port_and_asks() {
    session->state.received_buff = "old";
    session->turn_on(port);
    QCOMPARE(said(), is("pro") ? (QStringList{"clear", "remove"}) : QStringList{"remove"});
    QCOMPARE(session->state.received_buff, QString());
    QVERIFY(session->state.ui_changes_enabled);
    QCOMPARE(received(questions().size()), questions());
    virtual_time::pass(std::chrono::seconds(10));
    QCOMPARE(window->calls, QStringList());
}

void Test_Switch_Session::on_replaces_an_open_port() {
    session->turn_on(port);
    const QPointer<QSerialPort> first = transport().get_serial_port();
    session->turn_on(port);
    QVERIFY(first.isNull());
    QCOMPARE(transport().get_port_open_count(), 1);
}

void Test_Switch_Session::off_before_an_answer() {
    session->turn_on(port);
    view->records.clear();
    session->turn_off();
    QCOMPARE(said(), is("lite") ? QStringList() : QStringList{"disable"});
    QVERIFY(transport().get_serial_port() == nullptr);
    QCOMPARE(transport().get_port_open_count(), 0);
}

void Test_Switch_Session::off_after_an_answer() {
    session->turn_on(port);
    answer();
    session->turn_off();
    QCOMPARE(said(), is("lite") ? (QStringList{"disconnected", "disable"})
                                : (QStringList{"disable", "disconnected"}));
    QVERIFY(!session->state.km_connected);
    QVERIFY(!transport().is_open());
}

void Test_Switch_Session::off_without_a_device_only_shows_it() {
    session->state.km_connected = true;
    session->turn_off();
    QCOMPARE(said(),
             is("lite") ? (QStringList{"disconnected", "disable"}) : QStringList{"disconnected"});
    session->turn_off();
    QCOMPARE(said(), QStringList());
}

void Test_Switch_Session::refresh_forgets_and_asks() {
    session->turn_on(port);
    QCOMPARE(received(questions().size()), questions());
    answer();
    session->refresh_UI();
    QCOMPARE(said(), QStringList{"remove"});
    QCOMPARE(session->state.received_buff, QString());
    // The indicator stays as it is until the next answer.
    QVERIFY(!session->state.km_connected);
    QVERIFY(view->shows_connected());
    QCOMPARE(received(questions().size()), questions());
}

void Test_Switch_Session::a_change_of_the_program_itself_is_not_sent_meanwhile() {
    QList<bool> raised;
    view->on_record = [&](const QString&) { raised << session->state.ui_changes_enabled; };
    session->state.ui_changes_enabled = true;
    session->refresh_UI();
    QCOMPARE(raised, QList<bool>{false});
    QVERIFY(session->state.ui_changes_enabled);
    raised.clear();
    session->port_changed(port);
    QCOMPARE(raised, QList<bool>(is("pro") ? 4 : 3, false));
    QVERIFY(session->state.ui_changes_enabled);
}

void Test_Switch_Session::a_vanished_port_is_not_shown_and_on_opens_it_again() {
    session->turn_on(port);
    answer();
    device->close();
    QVERIFY(wait_until([this] { return !transport().get_serial_port()->isOpen(); }));
    QCOMPARE(said(), QStringList());
    QVERIFY(session->state.km_connected);
    QCOMPARE(transport().get_port_open_count(), 1);
    Pty_Port other;
    const QSignalSpy asked(&other, &Pty_Port::received);
    session->turn_on(other.device_name().mid(QString("/dev/").size()));
    QVERIFY(wait_until([&] { return !asked.isEmpty(); }));
    QCOMPARE(transport().get_port_open_count(), 1);
}

void Test_Switch_Session::a_later_refresh_comes_when_its_time_is_over() {
    window->clock.restart();
    session->refresh_after(800);
    virtual_time::pass(std::chrono::milliseconds(799));
    QCOMPARE(window->calls, QStringList());
    virtual_time::pass(std::chrono::milliseconds(1));
    QVERIFY(wait_until([this] { return !window->calls.isEmpty(); }));
    QCOMPARE(window->calls, QStringList{"refresh 800"});
}

void Test_Switch_Session::a_reset_is_waited_for_as_long_as_the_link_needs() {
    session->open_serial_port(port);
    window->clock.restart();
    session->refresh_after_reset();
    QVERIFY(wait_until([this] { return !window->calls.isEmpty(); }));
    QCOMPARE(window->calls, QStringList{"refresh 2500"});
    // A socket takes precedence, whatever was chosen.
    transport().use_socket(std::make_unique<QUdpSocket>());
    window->calls.clear();
    window->clock.restart();
    session->refresh_after_reset();
    QVERIFY(wait_until([this] { return !window->calls.isEmpty(); }));
    QCOMPARE(window->calls, QStringList{"refresh 1350"});
}

void Test_Switch_Session::without_a_device_no_reset_is_waited_for() {
    session->refresh_after_reset();
    virtual_time::pass(std::chrono::seconds(10));
    QCOMPARE(window->calls, QStringList());
}

void Test_Switch_Session::an_adapter_replaces_an_open_port() {
    session->open_serial_port(port);
    view->records.clear();
    session->connect_to_USR("127.0.0.1");
    QCOMPARE(said(), is("lite") ? (QStringList{"clear", "adapter:127.0.0.1"})
                                : (QStringList{"clear", "disable", "adapter:127.0.0.1"}));
    QVERIFY(transport().get_serial_port() == nullptr);
    QCOMPARE(transport().get_port_open_count(), 0);
    QCOMPARE(transport().get_socket_open_count(), 1);
    QCOMPARE(transport().get_network_socket()->peerAddress(), QHostAddress("127.0.0.1"));
    QCOMPARE(transport().get_network_socket()->peerPort(), quint16(23));
    QCOMPARE(session->get_current_USR_ip(), QString("127.0.0.1"));
}

void Test_Switch_Session::a_second_adapter_replaces_the_first() {
    session->connect_to_USR("127.0.0.1");
    const QPointer<QUdpSocket> first = transport().get_network_socket();
    view->records.clear();
    session->connect_to_USR("127.0.0.2");
    QCOMPARE(said(), (QStringList{"clear", "disconnected", "adapter:127.0.0.2"}));
    QVERIFY(first.isNull());
    QCOMPARE(transport().get_socket_open_count(), 1);
    QCOMPARE(transport().get_network_socket()->peerAddress(), QHostAddress("127.0.0.2"));
}

void Test_Switch_Session::a_port_replaces_the_adapter() {
    session->connect_to_USR("127.0.0.1");
    view->records.clear();
    session->open_serial_port(port);
    QVERIFY(transport().get_network_socket() == nullptr);
    QCOMPARE(transport().get_socket_open_count(), 0);
    const QStringList cleared = is("pro") ? QStringList{"clear"} : QStringList();
    QCOMPARE(said(), is("lite") ? cleared : cleared + QStringList{"disable"});
}

void Test_Switch_Session::on_leads_to_the_same_adapter_and_awaits_an_answer() {
    session->choose(Link_Method::network);
    session->connect_to_USR("127.0.0.1");
    // Nothing is sent to the loopback.
    session->state.write_enabled = false;
    view->records.clear();
    window->clock.restart();
    session->turn_on(port);
    QCOMPARE(said(), (QStringList{"clear", "disconnected", "adapter:127.0.0.1", "remove"}));
    QVERIFY(session->state.info_report_pending);
    virtual_time::pass(std::chrono::milliseconds(6999));
    QCOMPARE(window->calls, QStringList());
    QVERIFY(wait_until([this] { return !window->calls.isEmpty(); }));
    QCOMPARE(window->calls, QStringList{"first answer 7000"});
    QCOMPARE(said(), QStringList{"end:Check if the device is on the same network as the PC"});
}

void Test_Switch_Session::a_switch_that_answered_in_time_ends_nothing() {
    view->switch_answered();
    view->records.clear();
    session->is_not_Connected_Message();
    QCOMPARE(said(), QStringList());
    session->set_disconnected_indicator();
    session->is_not_Connected_Message();
    QCOMPARE(view->texts_of("end").size(), 1);
}

void Test_Switch_Session::off_closes_the_chosen_device_only() {
    session->open_serial_port(port);
    session->choose(Link_Method::network);
    view->records.clear();
    session->turn_off();
    QVERIFY(transport().get_serial_port()->isOpen());
    QCOMPARE(said(), QStringList());
    session->choose(Link_Method::serial);
    session->turn_off();
    QVERIFY(transport().get_serial_port() == nullptr);
}

void Test_Switch_Session::the_end_closes_the_chosen_device_and_keeps_it() {
    session->open_serial_port(port);
    session->close_device();
    QVERIFY(!transport().get_serial_port()->isOpen());
    QCOMPARE(transport().get_port_open_count(), 1);
}

QTEST_MAIN(Test_Switch_Session)

#include "test_switch_session.moc"
