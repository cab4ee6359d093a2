// SPDX-License-Identifier: MIT

#include "tests/support/modal_action.h"

#include "tests/support/find_child.h"

#include <QAbstractButton>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTest>

namespace {

QString plain_caption(const QAbstractButton& button) { return button.text().remove('&'); }

/// Where a user would click. A radio button or a check box accepts clicks on its mark and caption
/// only, and may be wider than both together.
QPoint click_point(const QAbstractButton& button) {
    constexpr int inside_the_mark = 10;
    const QPoint middle = button.rect().center();
    const bool has_mark = button.inherits("QRadioButton") || button.inherits("QCheckBox");
    return has_mark ? QPoint(inside_the_mark, middle.y()) : middle;
}

/// Clicks the first enabled button that matches; otherwise lists the existing ones.
QString press_first(const QWidget& modal, const QString& wanted,
                    const std::function<bool(const QAbstractButton&)>& fits) {
    QStringList others;
    for (QAbstractButton* button : modal.findChildren<QAbstractButton*>()) {
        if (fits(*button) && button->isVisible() && button->isEnabled()) {
            QTest::mouseClick(button, Qt::LeftButton, {}, click_point(*button));
            return {};
        }
        others.append(QString("\"%1\" (%2)%3%4")
                          .arg(plain_caption(*button), button->objectName(),
                               button->isVisible() ? "" : " hidden",
                               button->isEnabled() ? "" : " disabled"));
    }
    return QString("no button %1 to press, only: %2").arg(wanted, others.join(", "));
}

} // namespace

Modal_Action press_button(const QString& caption) {
    return [caption](QWidget& modal) {
        return press_first(modal, '"' + caption + '"', [&](const QAbstractButton& button) {
            return plain_caption(button) == caption;
        });
    };
}

Modal_Action press_object(const QString& object_name) {
    return [object_name](QWidget& modal) {
        return press_first(modal, "named " + object_name, [&](const QAbstractButton& button) {
            return button.objectName() == object_name;
        });
    };
}

Modal_Action press_key(Qt::Key key) {
    return [key](QWidget& modal) {
        QTest::keyClick(&modal, key);
        return QString();
    };
}

Modal_Action close_by_frame() {
    return [](QWidget& modal) {
        modal.close();
        return QString();
    };
}

Modal_Action type_into(const QString& object_name, const QString& text) {
    return [object_name, text](QWidget& modal) {
        auto* edit = modal.findChild<QLineEdit*>(object_name);
        if (edit == nullptr || !edit->isEnabled()) {
            return QString("no line edit %1 to type into, only: %2")
                .arg(object_name, named_children(modal).join(", "));
        }
        edit->selectAll();
        QTest::keyClick(edit, Qt::Key_Delete);
        QTest::keyClicks(edit, text);
        return QString();
    };
}

Modal_Action choose_file(const QString& path) {
    return [path](QWidget& modal) {
        auto* edit = modal.findChild<QLineEdit*>("fileNameEdit");
        auto* buttons = modal.findChild<QDialogButtonBox*>("buttonBox");
        if (edit == nullptr || buttons == nullptr) {
            return QString("not a file dialog of Qt's own");
        }
        // Not key by key: each key would start the completer, which reads the folder meanwhile.
        edit->setText(path);
        for (QAbstractButton* button : buttons->buttons()) {
            if (buttons->buttonRole(button) == QDialogButtonBox::AcceptRole) {
                QTest::mouseClick(button, Qt::LeftButton);
                return QString();
            }
        }
        return QString("the file dialog has no button to accept");
    };
}

Modal_Action leave_open() {
    return [](QWidget&) { return QString(); };
}

Modal_Action in_order(const std::vector<Modal_Action>& actions) {
    return [actions](QWidget& modal) {
        const QPointer<QWidget> still_there(&modal);
        for (const Modal_Action& action : actions) {
            if (still_there.isNull()) {
                return QString("the widget was gone before the last action");
            }
            const QString failure = action(modal);
            if (!failure.isEmpty()) {
                return failure;
            }
        }
        return QString();
    };
}
