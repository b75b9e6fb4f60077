// The menu entry's launcher: the data directories it finds under a user's
// Wine prefixes, which setting wins, its one question asked on the real
// dialog, and the real program becoming the tool in the folder it chose.
#include <QApplication>
#include <QListWidget>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

#include "chooser.h"
#include "data_dir.h"

namespace {

void touch(const QString& path) {
    QDir().mkpath(QFileInfo(path).path());
    QFile f(path);
    QVERIFY(f.open(QIODevice::WriteOnly));
}

void writeText(const QString& path, const QString& text) {
    QDir().mkpath(QFileInfo(path).path());
    QFile f(path);
    QVERIFY(f.open(QIODevice::WriteOnly));
    f.write(text.toUtf8());
}

// Runs `act` on the next modal widget of type W that shows up.
template <typename W>
void whenShown(std::function<void(W*)> act) {
    QTimer::singleShot(0, [act] {
        if (auto* w = dynamic_cast<W*>(QApplication::activeModalWidget())) {
            act(w);
            return;
        }
        whenShown<W>(act);
    });
}

}  // namespace

class TestLauncher : public QObject {
    Q_OBJECT
  private:
    QTemporaryDir root_;
    LauncherPlaces places_;
    QString home() const { return root_.filePath(QStringLiteral("home")); }
    QString caisse() const { return home() + QStringLiteral("/.wine/drive_c/Caisse/Data"); }
    QString magasin() const {
        return home() + QStringLiteral("/.wine-magasin/drive_c/Program Files/Caisse");
    }
    QString prefixed() const { return root_.filePath(QStringLiteral("pos/drive_c/POS")); }

  private slots:
    // A home with three Wine prefixes (one of them $WINEPREFIX), a link
    // from drive_c back to the home (as Wine makes for the user's folders),
    // a folder too deep and one with other files only.
    void initTestCase() {
        touch(caisse() + QStringLiteral("/w_cai020.wdo"));
        touch(magasin() + QStringLiteral("/w_cai020.wdo"));
        touch(prefixed() + QStringLiteral("/w_cai020.wdo"));
        touch(home() + QStringLiteral("/.wine/drive_c/Autre/WFICH142.WDO"));
        touch(home() + QStringLiteral("/.wine/drive_c/1/2/3/4/5/6/7/8/9/w_cai020.wdo"));
        touch(home() + QStringLiteral("/.wine/drive_c/1/2/3/4/5/6/7/8/w_cai020.wdo"));
        QDir().mkpath(home() + QStringLiteral("/.wine/drive_c/users/caisse"));
        QFile::link(home(), home() + QStringLiteral("/.wine/drive_c/users/caisse/Desktop"));
        places_ = {root_.filePath(QStringLiteral("etc/kalvo-periph/data-dir")),
                   home() + QStringLiteral("/.config/kalvo-periph/data-dir"), home(),
                   root_.filePath(QStringLiteral("pos"))};
    }

    void findsTheSalesProgramFolders() {
        const QStringList found = findDataDirs(places_);
        QCOMPARE(found, QStringList({prefixed(), home() + "/.wine/drive_c/1/2/3/4/5/6/7/8",
                                     caisse(), magasin()}));
    }

    // The till's setting first, then the user's; a setting that names a
    // folder without the data file counts as none.
    void tillSettingComesFirst() {
        QFile::remove(places_.tillSetting);
        QFile::remove(places_.userSetting);
        QCOMPARE(configuredDataDir(places_), QString());
        QVERIFY(rememberDataDir(places_, magasin()));
        QCOMPARE(configuredDataDir(places_), magasin());
        writeText(places_.tillSetting, caisse() + QStringLiteral("  \n"));
        QCOMPARE(configuredDataDir(places_), caisse());
        writeText(places_.tillSetting, home());
        QCOMPARE(configuredDataDir(places_), magasin());
    }

    // The question on the real dialog: a folder from the list is taken as
    // it is; another folder without the data file only after a yes.
    void asksWhichFolder() {
        DataDirChooser list(findDataDirs(places_));
        whenShown<QDialog>([](QDialog* d) {
            d->findChild<QListWidget*>(QStringLiteral("dossiers"))->setCurrentRow(3);
            d->findChild<QPushButton*>(QStringLiteral("ouvrir"))->click();
        });
        QCOMPARE(list.exec(), int(QDialog::Accepted));
        QCOMPARE(list.chosen(), magasin());

        DataDirChooser none({});
        QVERIFY(!none.findChild<QPushButton*>(QStringLiteral("ouvrir"))->isEnabled());
        int asked = 0;
        none.pickFolder = [&](QWidget*) {
            // The first answer to the warning is the default (no), the
            // second yes.
            const bool yes = asked++ > 0;
            whenShown<QMessageBox>([yes](QMessageBox* box) {
                QVERIFY(box->text().contains(QStringLiteral("ne contient pas w_cai020.wdo")));
                if (yes)
                    box->button(QMessageBox::Yes)->click();
                else
                    box->defaultButton()->click();
            });
            return home();
        };
        whenShown<DataDirChooser>([](DataDirChooser* d) {
            auto* other = d->findChild<QPushButton*>(QStringLiteral("autre"));
            other->click();
            QVERIFY(d->isVisible());
            other->click();
        });
        QCOMPARE(none.exec(), int(QDialog::Accepted));
        QCOMPARE(none.chosen(), home());
    }

    // The real launcher: the tool (a stand-in that tells where it runs and
    // under which process) replaces it in the folder set for the till, then
    // in the one remembered for the user; with nothing set it waits on its
    // question and starts nothing.
    void becomesTheToolThere() {
        const QString report = root_.filePath(QStringLiteral("tool-report"));
        const QString tool = root_.filePath(QStringLiteral("tool.sh"));
        writeText(tool, QStringLiteral("#!/bin/sh\necho \"$PWD $$ $#\" > \"%1\"\n").arg(report));
        QFile::setPermissions(tool, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        auto run = [&](bool tillSet) {
            QFile::remove(report);
            QProcess launcher;
            QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
            env.insert(QStringLiteral("HOME"), home());
            env.insert(QStringLiteral("XDG_CONFIG_HOME"), home() + QStringLiteral("/.config"));
            env.insert(QStringLiteral("WINEPREFIX"), places_.winePrefix);
            env.insert(QStringLiteral("KALVO_LAUNCHER_TEST_TOOL"), tool);
            env.insert(QStringLiteral("KALVO_LAUNCHER_TEST_TILL_SETTING"),
                       tillSet ? places_.tillSetting : root_.filePath(QStringLiteral("none")));
            launcher.setProcessEnvironment(env);
            launcher.start(QStringLiteral(KALVO_LAUNCHER), {});
            const qint64 pid = launcher.processId();
            const bool ended = launcher.waitForFinished(2000);
            if (!ended) launcher.kill(), launcher.waitForFinished();
            QFile f(report);
            return f.open(QIODevice::ReadOnly)
                       ? QString::fromUtf8(f.readAll()).replace(QString::number(pid), "PID")
                       : QStringLiteral("not started");
        };
        writeText(places_.tillSetting, caisse());
        QCOMPARE(run(true), caisse() + QStringLiteral(" PID 0\n"));
        QCOMPARE(run(false), magasin() + QStringLiteral(" PID 0\n"));
        QFile::remove(places_.userSetting);
        QCOMPARE(run(false), QStringLiteral("not started"));
    }
};

QTEST_MAIN(TestLauncher)
#include "test_launcher.moc"
