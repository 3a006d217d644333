#include "frame/frame_state.h"
#include "platform/files/ini_file.h"
#include "windows/media/folder_tree.h"
#include "windows/media/volumes.h"
#include "windows/parts/dialog_help.h"
#include "windows/sets/frm_wizard.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>

// What stands on the seven pages of the wizard.

namespace {

/// A tip with its title.
QString TitledTip(const char* title, const char* text)
{
    return QStringLiteral("<p style='white-space:pre'><b>%1</b><br>%2</p>")
        .arg(QString::fromLatin1(title).toHtmlEscaped(),
             QString::fromLatin1(text).toHtmlEscaped().replace(u'\n', QStringLiteral("<br>")));
}

QVBoxLayout* ColumnOf(QWidget* page)
{
    return static_cast<QVBoxLayout*>(page->layout());
}

} // namespace

QWidget* frmWizard::MakePage(const char* heading, std::initializer_list<const char*> paragraphs)
{
    auto* made = new QWidget(page);
    auto* column = new QVBoxLayout(made);
    column->setContentsMargins({});
    if (*heading) {
        auto* label = new QLabel(QString::fromLatin1(heading), made);
        QFont font = label->font();
        font.setBold(true);
        font.setPointSizeF(font.pointSizeF() * 1.25);
        label->setFont(font);
        column->addWidget(label);
    }
    for (const char* paragraph : paragraphs) {
        auto* label = new QLabel(QString::fromLatin1(paragraph), made);
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
        column->addWidget(label);
    }
    page->addWidget(made);
    return made;
}

QLineEdit* frmWizard::MakeLine(const char* name, const char* caption, int longest, const QString& tip, QLayout& into)
{
    auto* label = new QLabel(QString::fromLatin1(caption), this);
    auto* line = new QLineEdit(this);
    line->setObjectName(QString::fromLatin1(name));
    line->setMaxLength(longest);
    line->setToolTip(tip);
    label->setBuddy(line);
    into.addWidget(label);
    into.addWidget(line);
    connect(line, &QLineEdit::textChanged, this, [this] { ReadTexts(); });
    return line;
}

QCheckBox* frmWizard::MakeCheck(SetExtra extra, QWidget* on)
{
    const SetExtraRow& row = SetExtras().at(size_t(extra));
    auto* check = new QCheckBox(QString::fromLatin1(row.Caption), on);
    check->setObjectName(QString::fromLatin1(row.Control));
    check->setToolTip(TitledTip(row.TipTitle, row.Tip));
    check->setChecked(row.AtStart);
    connect(check, &QCheckBox::toggled, this, [this, extra](bool on2) { set.Extras.at(size_t(extra)) = on2; });
    checks.at(size_t(extra)) = check;
    return check;
}

QPlainTextEdit* frmWizard::MakeTextBox(const char* name, const QString& caption, QWidget* on)
{
    auto* box = new QPlainTextEdit(on);
    box->setObjectName(QString::fromLatin1(name));
    box->setAccessibleName(caption);
    box->setLineWrapMode(QPlainTextEdit::NoWrap);
    box->setTabChangesFocus(true);
    box->setFont(QFont(Frame.Settings.Fonts.MainFont, qRound(Frame.Settings.Fonts.MainFontSize)));
    return box;
}

void frmWizard::MakeNamesPage()
{
    QWidget* made = MakePage(
        "",
        {"Making an empty RnDs game with its folders and confs files can be a bit of a chore.   You normally have to  "
         "make a game folder in the RnDs levels folder,  then make folders for graphics,sounds and music. In each of "
         "these you need a conf file, and in each conf file you need a unique name,  which is used by the main "
         "levelinfo.conf.",
         "As you can see, it's easy to make a mistake at this point, and I very rarely make a new game structure "
         "without making some kind of error!",
         "This wizard will do all the hard work for you! Just fill in the details and you'll have a ready to edit game "
         "in seconds! ",
         "Hover the mouse over each control to get more detailed information."});
    QVBoxLayout& column = *ColumnOf(made);
    column.addStretch();
    txtGameName = MakeLine("txtGameName", "Your Games Full Title", LongestGameName,
                           TitledTip("Your Games Full Title",
                                     "The full name of your game. This long name is displayed\non the title screen and "
                                     "in the level select screen"),
                           column);
    txtGameShortName = MakeLine("txtGameShortName", "Its Short Name", LongestShortName,
                                TitledTip("Its Short Name",
                                          "This is used for the folder name and levelinfo referencing.\nTry to keep it "
                                          "short and meaningful."),
                                column);
    txtAuthor =
        MakeLine("txtAuthor", "Your Name", LongestAuthor, TitledTip("Your Name", "That's you that is...."), column);
    cmdLastTime = new QPushButton(QStringLiteral("Name And Folder Of Last Time"), made);
    cmdLastTime->setObjectName(QStringLiteral("cmdLastTime"));
    cmdLastTime->setAutoDefault(false);
    cmdLastTime->setVisible(ReadIni(QStringLiteral("Wizard"), QStringLiteral("Author")) != IniFile::NotFound);
    column.addWidget(cmdLastTime, 0, Qt::AlignLeft);
    column.addStretch();
    connect(cmdLastTime, &QPushButton::clicked, this, [this] { TakeLastTime(); });
}

void frmWizard::MakePlacePage()
{
    QWidget* made = MakePage("", {"Choose where to construct the game folders.",
                                  "You can create it anywhere, but it's best to make it in the main RnDs levels folder "
                                  "for instant results."});
    auto* frame = new QGroupBox(QStringLiteral("Where To Make Your Game"), made);
    Drive1 = new QComboBox(frame);
    Drive1->setObjectName(QStringLiteral("Drive1"));
    Drive1->setAccessibleName(QStringLiteral("Drive"));
    Drive1->setToolTip(TitledTip("Drive", "Choose a drive"));
    for (const Volume& volume : Volumes())
        Drive1->addItem(volume.Caption, volume.Folder);
    Dir1 = new FolderTree(frame);
    Dir1->setObjectName(QStringLiteral("Dir1"));
    Dir1->setAccessibleName(QStringLiteral("Folder"));
    Dir1->setToolTip(
        TitledTip("Folder", "Choose a folder. For quick results create this folder in: Rock'n'Diamonds\\Levels"));
    txtPath = new QLineEdit(frame);
    txtPath->setObjectName(QStringLiteral("txtPath"));
    txtPath->setAccessibleName(QStringLiteral("Folder To Make"));
    txtPath->setReadOnly(true);
    txtPath->setToolTip(TitledTip("Folder To Make", "This folder will be created and used by your game."));
    lblTaken = new QLabel(frame);
    lblTaken->setObjectName(QStringLiteral("lblTaken"));
    auto* inner = new QVBoxLayout(frame);
    inner->addWidget(Drive1);
    inner->addWidget(Dir1, 1);
    inner->addWidget(txtPath);
    inner->addWidget(lblTaken);
    ColumnOf(made)->addWidget(frame, 1);
    connect(Drive1, &QComboBox::activated, this, [this] {
        GoToFolder(Drive1->currentData().toString());
        ShowPath(false);
    });
    connect(Dir1, &FolderTree::Picked, this, &frmWizard::FolderPicked);
}

void frmWizard::MakeLevelinfoPage()
{
    QWidget* made = MakePage("Levelinfo.conf",
                             {"This is the levelinfo.conf file.   ",
                              "As well as general settings for your game, this file is a sort of index for your "
                              "graphics,sound and music conf files. The short name you selected is used as a key.   "
                              "You may hand edit this text, but be careful!"});
    txtLevelinfoPrev = MakeTextBox("txtLevelinfoPrev", QStringLiteral("Levelinfo.conf"), made);
    ColumnOf(made)->addWidget(txtLevelinfoPrev, 1);
}

void frmWizard::MakeArtworkPage(const ArtworkRow& artwork, const char* heading, const char* textBox,
                                std::initializer_list<const char*> paragraphs)
{
    QWidget* made = MakePage(heading, paragraphs);
    const auto number = size_t(&artwork - Artworks().data());
    for (const SetExtra extra : {artwork.Dump, artwork.Example}) {
        QCheckBox* check = MakeCheck(extra, made);
        ColumnOf(made)->addWidget(check);
        connect(check, &QCheckBox::toggled, this, [this, number] { ShowArtwork(number); });
    }
    QPlainTextEdit*& box = txtExamples.at(number);
    box = MakeTextBox(textBox, QString::fromLatin1(heading), made);
    box->setReadOnly(true);
    ColumnOf(made)->addWidget(box, 1);
}

void frmWizard::MakeExtrasPage()
{
    QWidget* made = MakePage("", {"Some extra files that you may want."});
    auto* frame = new QGroupBox(QStringLiteral("Extra Files"), made);
    auto* inner = new QVBoxLayout(frame);
    for (const SetExtra extra :
         {SetExtra::ExampleLevel, SetExtra::HelpText, SetExtra::HelpAnim, SetExtra::EditorSetup, SetExtra::Readme})
        inner->addWidget(MakeCheck(extra, frame));
    cmdDone = new QPushButton(QStringLiteral("Finished"), made);
    cmdDone->setObjectName(QStringLiteral("cmdDone"));
    cmdDone->setAutoDefault(false);
    cmdDone->setToolTip(TitledTip("Make Your Game!", "Lets Go!"));
    ColumnOf(made)->addWidget(frame);
    ColumnOf(made)->addWidget(cmdDone, 0, Qt::AlignHCenter);
    ColumnOf(made)->addStretch();
    connect(cmdDone, &QPushButton::clicked, this, [this] { MakeGame(); });
}
