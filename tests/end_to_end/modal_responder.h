// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QPointer>
#include <QSocketNotifier>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <QWidget>

/// Works inside the real program in place of a user: lines on the standard input say what to do,
/// lines on the standard output report what was seen.
///
/// It reads
///
///     answer <action>,<action>...   for the next modal window, or the one that is open
///     close                         closes the main window by its frame
///     fonts                         asks for the fonts in use
///
/// where an action is "frame", "escape", "<radio button>=<new caption>", or the object name or the
/// caption of a button to press. Without an answer a modal window stays as it is. It writes
///
///     modal <class> "<title>"       and for a message box "<text>" icon <number> <buttons>
///     shown <class> "<title>"       a main window
///     gone <class>                  a main window, or the model dialog
///     fonts <family> <points>, for Segoe UI <family>   the fonts in which texts are really drawn
///     failed <reason>               an action that was not possible
class Modal_Responder : public QObject {
    Q_OBJECT

public:
    Modal_Responder();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void read_input();
    void obey(const QString& line);
    void look();

    QSocketNotifier input;
    QByteArray unread;
    QStringList answers;
    QTimer timer;
    QPointer<QWidget> met;
};

/// Writes one line at once.
void report(const QString& line);
