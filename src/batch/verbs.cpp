#include "batch/verbs.h"

#include "batch/answer_list.h"
#include "batch/block_verbs.h"
#include "batch/conf_verbs.h"
#include "batch/game_verbs.h"
#include "batch/image_verbs.h"
#include "batch/level_verbs.h"
#include "batch/run_verb.h"
#include "batch/set_verbs.h"

#include <algorithm>

namespace {

constexpr Verb AllVerbs[] = {
    {"check", "FILE...",
     "Prints the first bad line of each file as FILE:LINE: MESSAGE, LINE from 1, one line a message.\n"
     "The kind of conf follows from the file's name; images are looked for in the file's folder, in the\n"
     "folder of its \"#!*\" line and in the game's graphics folder.\n"
     "Ends with 1 if any file has a bad line, else with 0.\n",
     CheckVerb},
    {"tidy", "FILE...", "Brings every value of the files to the value column, in place.\n", TidyVerb},
    {"comment", "FILE A B", "Puts \"#\" in front of lines A to B, counted from 1, in place.\n", CommentVerb},
    {"uncomment", "FILE A B", "Takes one \"#\" from the front of lines A to B, counted from 1, in place.\n",
     UncommentVerb},
    {"blocks", "FILE | --verify FILE...",
     "Prints a JSON object a line for each element block of a graphics conf: key, line (from 1), image, xpos, ypos,\n"
     "frames, delay, anim_mode, start_frame (-1: not given), global_sync, offset, name, reverse. Sub groups count as\n"
     "blocks; comment lines do not.\n"
     "With --verify it writes every block back in memory instead and prints each line that is not the same but for\n"
     "the blanks in front of its value; the last line counts: \"A blocks: B the same, C different\". Ends with 1 if\n"
     "any differs, else with 0.\n",
     BlocksVerb},
    {"level info", "FILE",
     "Prints version, name, author, width, height, size (of the map, as the file tells it), bit (2bit: one byte a\n"
     "cell, 4bit: two), time, count and form (rnd1-2, rnd1-3, 1.0, 1.2 or 1.4), a line each as KEY: VALUE; NA where\n"
     "the form has no such field. A file that is no level ends with 2.\n",
     LevelInfoVerb},
    {"level map", "FILE",
     "Prints the map, a row a line, as decimal element numbers with blanks between them.\n"
     "A file that is no level ends with 2.\n",
     LevelMapVerb},
    {"level picture", "FILE OUT.png [--palette GIF] [--set FOLDER]",
     "Draws a level's map, 16 by 16 pixels a cell, with a palette: the one given, one made from the graphicsinfo.conf "
     "and\n"
     "the sheets of a level set, or else that of the level's folder in previews/, or the default one.\n"
     "What cannot be read or written ends with 2.\n",
     LevelPictureVerb},
    {"level list", "FOLDER",
     "Prints a line for each level of a folder, its columns parted by tabs: number, name, author, width, height, time, "
     "count,\n"
     "form. A tab in a text is printed as a blank. Files that are no level are told on standard error, and it ends "
     "with "
     "1.\n"
     "A folder that cannot be read ends with 2.\n",
     LevelListVerb},
    {"level diff", "A B",
     "Prints what tells two levels apart: FIELD: OLD -> NEW, with the fields of level info, and X,Y: OLD -> NEW for "
     "each\n"
     "cell that both maps have, X and Y from 1. settings are header bytes that are no field, customs what stands after "
     "the\n"
     "map. Ends with 1 if there is any difference, with 2 if a file is no level.\n",
     LevelDiffVerb},
    {"level verify", "FILE...",
     "Loads each file and saves it to memory, and compares the two. Prints a line for each file that is not the same:\n"
     "FILE: differs from byte N on (N from 0), or FILE: no level: REASON. The last line counts:\n"
     "\"A files: B the same, C different, D no level\".\n"
     "Ends with 2 if any file is no level or can not be read, else with 1 if any differs, else with 0.\n",
     LevelVerifyVerb},
    {"run", "MACRO [--on FILE] [--save FILE] [--answer TEXT]... [--allow-files] [--log] [--seed N] [--max-seconds N]",
     "Runs a macro of Gemforge BASIC: an archive (.gfb) or plain source. It works on FILE's text, or on an empty one,\n"
     "and prints the text that it leaves. --save writes that text to a file, in FILE's encoding and with its line\n"
     "ends, if the macro ends with 0.\n"
     "--answer answers a dialog, in order: a button's caption, an entry's text, a path; an empty one cancels ask. "
     "With\n"
     "none left a message takes its first button and everything else is cancelled. Commands that work with files or\n"
     "programs are refused, unless --allow-files is given or the next answer is Continue. Standard error gets a line\n"
     "MESSAGE TITLE|TEXT|BUTTONS for each message and, with --log, PRINT TEXT for each print. --seed begins the\n"
     "macro's random numbers.\n"
     "Ends with 0, or with 1 after an error, which is told as \"BASIC Error In Line N: TEXT\", with 2 for a wrong "
     "call,\n"
     "a file that can not be read or written or an answer that fits nothing, with 3 if --max-seconds or a refused\n"
     "command stopped it.\n",
     RunMacroVerb},
    {"pcx", "IN OUT [--colours N] [--neuquant]",
     "Turns a picture of any kind into a PCX, or a PNG if OUT ends in .png: of 24 bits, or with an option of 8 bits "
     "with\n"
     "a palette of N colours, 2 to 256 (256 without a number), reduced by Wu's method or the other one. See-through\n"
     "pixels become black. What cannot be read or written ends with 2, and an older OUT stays as it was.\n",
     PcxVerb},
    {"film", "IN OUT [--tiles N] [--keep-repeats] [--fit HOW]",
     "Lays the frames of a film out as a sheet of tiles of 32 by 32 pixels, N a row (1 to 25, else 16); OUT ends in\n"
     ".bmp, .pcx or .png. A frame that repeats the one before takes no tile, unless asked for. Frames must be of that\n"
     "size, or HOW tells what becomes of them: \"whole\", \"middle\" (the square in the middle) or the part\n"
     "X,Y,WIDTH,HEIGHT, each scaled. Prints how many tiles there are. Ends with 1 if the film breaks off or the sheet "
     "is\n"
     "full, with 2 if it cannot be read or written.\n",
     FilmVerb},
    {"sheet", "OUT IN... [--tiles N] [--drop-repeats] [--fit HOW]",
     "Lays pictures, or those of folders, out as a sheet in the same way. One of several tiles gives them all. Ends "
     "with\n"
     "2, and writes nothing, if any of them cannot be read or is of another size without --fit.\n",
     SheetVerb},
    {"game info", "[--game PATH] [--max-seconds N]",
     "Proves that PATH (else the RNDPath of the settings) is the game, and prints its version and the folder of its\n"
     "data, a line each as KEY: VALUE; NA if no data is found.\n"
     "Ends with 2 and the reason if it is not the game, with 3 if it has not answered after N seconds (60).\n",
     GameInfoVerb},
    {"game extract", "KIND [--game PATH] [--max-seconds N]",
     "Lets the game print a default conf and prints it with its entries live. KIND is graphics, sounds, music,\n"
     "helptext, helpanim or editor. Ends as game info does.\n",
     GameExtractVerb},
    {"game check", "SET-FOLDER [--game PATH] [--max-seconds N]",
     "Lets the game read a level set unseen, in a home folder of its own, and prints what it complains about, a line\n"
     "each as FILE:LINE: KEY: TEXT. FILE is told from SET-FOLDER; LINE is 0 where the key is not found; a complaint\n"
     "without file and key is -:0: : TEXT. Nothing of the set is changed.\n"
     "Ends with 1 if there is any, else as game info does.\n",
     GameCheckVerb},
    {"set new", "--title T --short S --author A --in FOLDER [--with WORD,...] [--game PATH]",
     "Makes a new level set in FOLDER, as the wizard does, and prints its folder. T, S and A may have 255, 15 and 100\n"
     "characters. The words are graphics-dump, graphics-example, sounds-dump, sounds-example, music-dump,\n"
     "music-example, level, helptext, helpanim, editorsetup and readme; without --with all that need no game, with an\n"
     "empty one none. A dump is printed by the game at PATH, else by the one of the settings.\n"
     "Ends with 1 if nothing was made, and tells why; with 2 after a wrong call.\n",
     SetNewVerb},
    {"set list", "FOLDER",
     "Prints a line for each level set below FOLDER: \"folder\" or \"zip\", its path and its name as the Level "
     "Manager\n"
     "shows it, parted by tabs.\n",
     SetListVerb},
    {"set zip", "FOLDER",
     "Packs a level set into FOLDER.levzip, removes the folder once the archive was read again and compared, and "
     "prints\n"
     "the archive's path. Ends with 1 and the reason if nothing has changed, such as where that archive stands "
     "already\n"
     "or FOLDER holds neither a level nor a levelinfo.conf; with 2 if FOLDER is none, or stays beside its archive.\n",
     SetZipVerb},
    {"set unzip", "FILE",
     "Unpacks a .levzip into the folder of its name beside it, removes the archive once the folder was compared with\n"
     "it, and prints the folder's path. Ends as set zip does.\n",
     SetUnzipVerb},
};

const Verb* FindVerb(const QString& name)
{
    const auto found = std::find_if(std::begin(AllVerbs), std::end(AllVerbs),
                                    [&](const Verb& verb) { return name == QLatin1String(verb.Name); });
    return found == std::end(AllVerbs) ? nullptr : found;
}

/// The verb that a call begins with; a name may have two words. `words` becomes their number.
const Verb* TakeVerb(const QStringList& arguments, int& words)
{
    for (words = 2; words > 0; --words)
        if (const Verb* verb = FindVerb(QStringList(arguments.mid(0, words)).join(u' ')))
            return verb;
    return nullptr;
}

void ListVerbs(QTextStream& out)
{
    out << "gemforge-batch VERB ARGUMENTS: tools of Gemforge without a window.\n\n";
    for (const Verb& verb : AllVerbs)
        out << "  gemforge-batch " << verb.Name << ' ' << verb.Usage << '\n';
    out << "\ngemforge-batch VERB --help explains a verb. A usage or reading error ends with 2.\n";
}

bool AsksForHelp(const QString& word)
{
    return word == QLatin1String("--help") || word == QLatin1String("-h");
}

void Explain(const Verb& verb, QTextStream& out)
{
    out << "gemforge-batch " << verb.Name << ' ' << verb.Usage << '\n' << verb.Help;
}

/// "level --help": all verbs of two words that begin so. False if that is not what is asked.
bool HelpOnFamily(const QStringList& arguments, QTextStream& out)
{
    if (arguments.size() != 2 || !AsksForHelp(arguments.at(1)))
        return false;
    bool any = false;
    for (const Verb& verb : AllVerbs) {
        if (!QString::fromLatin1(verb.Name).startsWith(arguments.first() + QLatin1Char(' ')))
            continue;
        Explain(verb, out);
        any = true;
    }
    return any;
}

} // namespace

std::span<const Verb> Verbs()
{
    return AllVerbs;
}

VerbResult Failed(const Failure& failure, VerbStreams& streams)
{
    streams.Err << failure.Path << ": " << failure.Reason << '\n';
    return VerbFailed;
}

VerbResult WrongUsage(const char* verb, const QString& reason, VerbStreams& streams)
{
    streams.Err << "gemforge-batch " << verb << ": " << reason << '\n';
    if (const Verb* row = FindVerb(QString::fromLatin1(verb)))
        streams.Err << "Use: gemforge-batch " << row->Name << ' ' << row->Usage << '\n';
    return VerbFailed;
}

VerbResult RunVerb(const QStringList& arguments, VerbStreams streams)
{
    if (arguments.isEmpty()) {
        ListVerbs(streams.Err);
        return VerbFailed;
    }
    if (AsksForHelp(arguments.first())) {
        ListVerbs(streams.Out);
        return VerbDone;
    }
    int words = 0;
    const Verb* verb = TakeVerb(arguments, words);
    if (!verb && HelpOnFamily(arguments, streams.Out))
        return VerbDone;
    if (!verb)
        return WrongUsage(qPrintable(arguments.first()), QStringLiteral("there is no such verb (see --help)"), streams);
    const QStringList rest = arguments.mid(words);
    if (!rest.isEmpty() && AsksForHelp(rest.first())) {
        Explain(*verb, streams.Out);
        return VerbDone;
    }
    const VerbResult result = verb->Run(rest, streams);
    const Result<> answered = streams.Answers.Outcome();
    return answered ? result : Failed(answered.error(), streams);
}
