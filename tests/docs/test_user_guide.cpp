// SPDX-License-Identifier: MIT

#include <QDir>
#include <QFile>
#include <QHash>
#include <QRegularExpression>
#include <QSet>
#include <QTest>
#include <QXmlStreamReader>

#include <stdexcept>

/// Compares the user guide with the sources of the product: it describes all that a user can see.
class Test_User_Guide : public QObject {
    Q_OBJECT

private slots:
    void every_picture_named_is_there();
    void every_picture_there_is_named();
    void every_picture_is_one_that_can_be_taken_anew();
    void every_caption_is_mentioned_data();
    void every_caption_is_mentioned();
    void every_dialog_is_mentioned_by_its_heading();
    void every_label_of_a_settings_file_is_mentioned();
    void every_message_is_explained();
    void what_is_held_to_be_no_message_stands_in_the_sources();
};

namespace {

const QDir& tree() {
    static const QDir folder(HALVERN_SOURCE_FOLDER);
    return folder;
}

QString text_of(const QString& path) {
    QFile file(tree().filePath(path));
    if (!file.open(QIODevice::ReadOnly)) {
        throw std::runtime_error("can't read " + path.toStdString());
    }
    return QString::fromUtf8(file.readAll());
}

/// The guide without line ends and emphasis, so that a text is found wherever its line breaks.
QString guide() { return text_of("docs/user-guide.md").remove('*').remove('`').simplified(); }

QStringList files(const QString& folder, const QString& pattern) {
    QStringList paths;
    for (const QString& name : QDir(tree().filePath(folder)).entryList({pattern}, QDir::Files)) {
        paths.append(folder + '/' + name);
    }
    return paths;
}

QStringList captures(const QString& text, const QString& pattern) {
    QStringList found;
    const QRegularExpression expression(pattern, QRegularExpression::MultilineOption);
    for (auto matches = expression.globalMatch(text); matches.hasNext();) {
        found.append(matches.next().captured(1));
    }
    return found;
}

/// What a text lacks, for comparing with "nothing".
QString missing_in(const QString& text, const QStringList& wanted) {
    QStringList missing;
    for (const QString& part : wanted) {
        if (!text.contains(part)) {
            missing.append(part);
        }
    }
    missing.removeDuplicates();
    return missing.join(" | ");
}

QSet<QString> named_pictures() {
    QSet<QString> named;
    for (const QString& page : files("docs", "*.md") + QStringList{"README.md"}) {
        for (const QString& target : captures(text_of(page), R"(!\[[^\]]*\]\(([^)]+)\))")) {
            named.insert(QDir::cleanPath(page.section('/', 0, -2) + '/' + target)
                             .remove(QRegularExpression("^/")));
        }
    }
    return named;
}

/// One widget of a form, with what a user reads on it.
struct Caption {
    QString class_name;
    QString name;
    QString text;
};

/// The widgets of a form that have a text. Only the three pages that a main window's buttons open
/// are checked: the fourth is never shown.
QList<Caption> captions(const QString& form) {
    constexpr int pages_shown = 3;
    QList<Caption> found;
    QList<Caption> open;
    int pages = 0;
    int depth_of_hidden_page = 0;
    bool in_text = false;
    QXmlStreamReader xml(text_of(form));
    while (!xml.atEnd()) {
        xml.readNext();
        const QString name = xml.attributes().value("name").toString();
        if (xml.isStartElement() && xml.name() == u"widget") {
            const bool is_page = !open.isEmpty() && open.last().class_name == "QStackedWidget";
            open.append({xml.attributes().value("class").toString(), name, {}});
            if (is_page && ++pages > pages_shown) {
                depth_of_hidden_page = static_cast<int>(open.size());
            }
        } else if (xml.isEndElement() && xml.name() == u"widget") {
            const Caption widget = open.takeLast();
            if (!widget.text.isEmpty() && depth_of_hidden_page == 0) {
                found.append(widget);
            }
            if (open.size() < depth_of_hidden_page) {
                depth_of_hidden_page = 0;
            }
        } else if (xml.isStartElement() && xml.name() == u"property") {
            in_text = name == "text";
        } else if (xml.isStartElement() && xml.name() == u"string" && in_text && !open.isEmpty()) {
            open.last().text = xml.readElementText().simplified();
        }
    }
    return found;
}

/// Texts of the product's .cpp files that look like a message to the user: they begin with a
/// capital letter and continue after a space. Literals broken over lines are joined first. Log
/// entries, style sheets, comments and paths of includes are left out.
QSet<QString> sentences_in_sources() {
    static const QRegularExpression no_text(
        R"(^\s*(#include|//)[^\n]*|write_log_line\([^;]*;|qC(Debug|Info|Warning)\([^;]*;)",
        QRegularExpression::MultilineOption);
    static const QRegularExpression seam(R"("\s*\n\s*")");
    QSet<QString> sentences;
    for (const char* folder : {"app", "link", "usr", "settings", "pages", "windows"}) {
        for (const QString& file : files(folder, "*.cpp")) {
            const QString code = text_of(file).remove(no_text).remove(seam);
            for (const QString& literal :
                 captures(code, R"re("([A-Z][A-Za-z]*[ ,](?:[^"\\\n{]|\\.)*)")re")) {
                sentences.insert(literal.simplified());
            }
        }
    }
    return sentences;
}

/// Texts that look like a message and are none, each with what it is.
const QHash<QString, QString>& no_messages() {
    static const QHash<QString, QString> texts = {
        {"Segoe UI", "a font"},
        {"Segoe UI Emoji", "a font"},
        {"Liberation Sans", "a font"},
        {"Apply Mouse Parking", "a name for screen readers"},
        {"Channel 1", "a name for screen readers"},
        {"Channel 2", "a name for screen readers"},
        {"Connection Off", "a name for screen readers"},
        {"Connection On", "a name for screen readers"},
        {"IP Allocation: DHCP", "a name for screen readers"},
        {"IP Allocation: Static", "a name for screen readers"},
        {"Mouse Parking x-axis", "a name for screen readers"},
        {"Mouse Parking y-axis", "a name for screen readers"},
        {"Number of custom setting", "a name for screen readers"},
        {"Name of custom setting", "a name for screen readers"},
        {"X of custom setting", "a name for screen readers"},
        {"Y of custom setting", "a name for screen readers"},
        {"Mouse movement resolution of channel 1", "a name for screen readers"},
        {"Mouse movement resolution of channel 2", "a name for screen readers"},
        {"Mouse movement resolution of channel 3", "a name for screen readers"},
        {"Mouse movement resolution of channel 4", "a name for screen readers"},
        {"Velmoran Ostrel", "the title of the dialogs"},
        {"Text files (*.txt)", "what a file dialog lists"},
        {"Relative Mouse Mode", "a value in the switch's report"},
        {"Save Settings File", "the title of a file dialog"},
        {"Select file", "the title of a file dialog"},
        {"Error binding to port:", "for a developer's terminal"},
        {"Invalid argument:", "for a developer's terminal"},
        {"Channel", "what a tile is named with"},
        {"Channel 3", "the name of a tile"},
        {"Channel 4", "the name of a tile"},
    };
    return texts;
}

} // namespace

void Test_User_Guide::every_picture_named_is_there() {
    QVERIFY(!named_pictures().isEmpty());
    for (const QString& picture : named_pictures()) {
        QVERIFY2(QFile::exists(tree().filePath(picture)), qPrintable(picture));
    }
}

void Test_User_Guide::every_picture_there_is_named() {
    for (const QString& picture : files("docs/images", "*")) {
        QVERIFY2(named_pictures().contains(picture), qPrintable(picture));
    }
}

void Test_User_Guide::every_picture_is_one_that_can_be_taken_anew() {
    QStringList taken = captures(text_of("tools/guide-images"), "^take (\\S+) ");
    taken.sort();
    QStringList there;
    for (const QString& picture : files("docs/images", "*")) {
        there.append(QFileInfo(picture).completeBaseName());
    }
    QCOMPARE(there, taken);
}

void Test_User_Guide::every_caption_is_mentioned_data() {
    QTest::addColumn<QString>("form");
    for (const QString& form : files("forms", "*.ui")) {
        if (form != "forms/yes_no_dialog.ui") {
            // Its captions are placeholders; the texts shown come from the code.
            QTest::newRow(qPrintable(form)) << form;
        }
    }
}

void Test_User_Guide::every_caption_is_mentioned() {
    QFETCH(QString, form);
    QStringList wanted;
    for (const Caption& caption : captions(form)) {
        const bool is_control =
            QStringList{"QPushButton", "QRadioButton", "QCheckBox"}.contains(caption.class_name);
        static const QRegularExpression names_a_control("(:|Settings|Control)$");
        if (is_control || caption.text.contains(names_a_control)) {
            wanted.append(caption.text.section(':', 0, 0));
        }
    }
    QVERIFY(wanted.size() > 1);
    QCOMPARE(missing_in(guide(), wanted), QString());
}

void Test_User_Guide::every_dialog_is_mentioned_by_its_heading() {
    QStringList wanted;
    for (const QString& form : files("forms", "*_dialog.ui")) {
        if (form != "forms/yes_no_dialog.ui") {
            // The text after a bracket explains how to choose.
            wanted.append(captions(form).value(0).text.section('(', 0, 0).trimmed());
        }
    }
    QCOMPARE(wanted.size(), 6);
    QCOMPARE(missing_in(guide(), wanted), QString());
}

void Test_User_Guide::every_label_of_a_settings_file_is_mentioned() {
    QStringList labels = captures(text_of("settings/settings_file.h")
                                      .section("setting_label {", 1)
                                      .section("} // namespace", 0, 0),
                                  "\"([^\"]+): \"");
    QCOMPARE(labels.size(), 26);
    for (QString& label : labels) {
        // The guide mentions four channels and entries at once.
        label.remove(QRegularExpression(" [1-4]$"));
    }
    QCOMPARE(missing_in(guide(), labels), QString());
}

void Test_User_Guide::every_message_is_explained() {
    const QString messages =
        text_of("docs/user-guide.md").section("\n## Messages\n", 1).section("\n## ", 0, 0);
    QVERIFY(!messages.isEmpty());
    QSet<QString> sentences = sentences_in_sources();
    QVERIFY(sentences.size() > 40);
    for (const QString& text : no_messages().keys()) {
        sentences.remove(text);
    }
    QStringList wanted = sentences.values();
    wanted.sort();
    QCOMPARE(missing_in(messages.simplified(), wanted), QString());
}

void Test_User_Guide::what_is_held_to_be_no_message_stands_in_the_sources() {
    const QSet<QString> sentences = sentences_in_sources();
    for (const QString& text : no_messages().keys()) {
        QVERIFY2(sentences.contains(text), qPrintable(text));
    }
}

QTEST_APPLESS_MAIN(Test_User_Guide)
#include "test_user_guide.moc"
