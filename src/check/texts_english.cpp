#include "check/texts.h"

namespace hublink::check {

constinit const Texts english{
    .report{
        .title = L"What Hublink {1} would find on this computer, {2}",
        .system = L"Windows {1}",
        .ok = L"ok",
        .note = L"note",
        .problem = L"problem",
        .nothingWrong = L"No problem was found. Notes: {1}.",
        .verdict = L"Problems: {1}. Notes: {2}.",
        .saved = L"The report was saved as {1}.",
        .notSaved = L"The report cannot be saved as {1}: {2}. A file that is there already is never replaced.",
        .notUnderstood = L"Not understood: {1}",
        .usage = L"HublinkCheck tells what Hublink would find on this computer, and what to do. It changes nothing.\r\n"
                 L"\r\n"
                 L"HublinkCheck [--map] [--language en|fr] [--save FILE [--with-names]]\r\n"
                 L"HublinkCheck --help\r\n"
                 L"\r\n"
                 L"  --map          lists what mirrors what: the softphone's records and the groupware's\r\n"
                 L"  --language     the language of the report\r\n"
                 L"  --save FILE    saves the report too, in a new file, without the names of people and machines\r\n"
                 L"  --with-names   leaves them in\r\n"
                 L"  --help         shows this, as -h and /? do\r\n"
                 L"\r\n"
                 L"Exit code: 0 without a problem, 1 with one, 2 for a wrong command line or a report that could\r\n"
                 L"not be saved.\r\n",
        .pressKey = L"Press a key to close this window.",
        .failed = L"HublinkCheck cannot go on: ",
    },
    .softphone{
        .title = L"Softphone",
        .folder = L"The softphone's folder is {1}.",
        .noFolder =
            {L"The registry names no folder of the softphone.",
             L"Install the softphone. The text value \"Path\" of HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows\\"
             L"CurrentVersion\\App Paths\\Pavex.exe names its folder. Without it Hublink finds no settings and "
             L"stops."},
        .folderUnreadable =
            {L"The registry has the softphone's key, but no usable folder in it.",
             L"Give HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\Pavex.exe "
             L"a plain text value \"Path\" (REG_SZ) of at most 255 characters, or install the softphone again."},
        .folderInOtherView = {L"Only the 64-bit part of the registry names the softphone's folder, {1}. Hublink reads "
                              L"the 32-bit part.",
                              L"Install the 32-bit softphone, or put the value \"Path\" into the 32-bit part as well."},
        .folderMissing = {L"The softphone's folder {1} is not there.",
                          L"Install the softphone again, or correct \"Path\" in its App Paths key."},
        .programMissing = {L"pavex.exe does not lie in {1}.",
                           L"Nothing, if the softphone's program lies elsewhere; else install the softphone again."},
        .server = L"The softphone's server is {1}.",
        .noServer =
            {L"The registry names no server of the softphone for this user.",
             L"Nothing, if the softphone works. It writes the value \"HostZRB\" into HKEY_CURRENT_USER\\Software\\"
             L"Orvel\\Pavex\\Name when this user signs in to it."},
        .user = L"The softphone's user is {1}.",
        .noUser =
            {L"The registry names no user of the softphone.",
             L"Nothing, if the softphone works. It writes the value \"Man\" into HKEY_CURRENT_USER\\Software\\Orvel\\"
             L"Pavex\\Name when this user signs in to it."},
    },
    .classes{
        .registered = L"{1} is registered; its program is {2}.",
        .registered64 = L"{1} is registered by a 64-bit program, {2}. Hublink reaches it all the same.",
        .inProcess = L"{1} is registered; Windows loads it from {2}.",
        .offered = L"{1} runs and can be reached.",
        .notRegistered = {L"{1} is not registered: Hublink cannot reach this program.",
                          L"Install the program, or repair its installation."},
        .withoutServer = {L"{1} is registered without a program.", L"Repair the installation of the program."},
        .serverMissing = {L"{1} is registered, but its program {2} is not there.",
                          L"Install the program again, or repair its installation."},
        .inProcess64 = {L"{1} is a 64-bit library, {2}, which Hublink, a 32-bit program, cannot load.",
                        L"Install the 32-bit version of the program."},
    },
    .ini{
        .title = L"Ini file",
        .file = L"The ini file is {1}.",
        .ansi = L"It is written in the system's code page (ANSI).",
        .utf8 = L"It is written in UTF-8.",
        .utf16 = L"It is written in UTF-16.",
        .noSoftphone =
            {L"Without the softphone's folder Hublink looks for {1} where it is started, and stops when it finds none.",
             L"The softphone's folder comes first: see above."},
        .toBeInstalled = {L"The ini file {1} is not there yet; below stands the default one.",
                          L"Start Hublink once: it copies the default file there, if its user may."},
        .missing = {L"The ini file {1} is not there, and no default one lies beside Hublink.",
                    L"Copy pavexconnector.ini there. Without it Hublink stops."},
        .noFolder = {L"The folder {1} is not there. Hublink makes none.",
                     L"Make the folder and copy pavexconnector.ini into it. Without it Hublink stops."},
        .fileInPlaceOfFolder =
            {L"{1} is a file; a folder should stand there.",
             L"Remove the file, or rename it; make the folder and copy pavexconnector.ini into it. Without it Hublink "
             L"stops."},
        .isFolder = {L"{1} is a folder; a file should stand there.",
                     L"Remove the folder and copy pavexconnector.ini there."},
        .unreadable = {L"The ini file {1} cannot be read: {2}.",
                       L"Let this user read it, and close the program that keeps it to itself."},
        .tooLarge = {L"The ini file {1} is larger than 4 MB. It holds no settings and was not read.",
                     L"Copy pavexconnector.ini there again."},
        .beyondCodePage = {L"The path of the ini file {1} has characters that the system's code page lacks: Hublink "
                           L"cannot read it.",
                           L"Install the softphone in a folder whose name has none of them."},
        .notText = {L"The ini file is no text.", L"Copy pavexconnector.ini there again."},
        .utf8Mark = {L"The ini file begins with the mark of UTF-8, which Windows takes for a part of its first line.",
                     L"Save it as UTF-8 without a mark (BOM), as ANSI, or begin it with a comment line."},
        .utf16Reversed = {L"The ini file is written in UTF-16 of the reversed byte order, which Windows does not read.",
                          L"Save it as ANSI or UTF-8."},
        .lostCharacters =
            {L"The ini file has characters that the system's code page lacks; of a UTF-16 file they are lost.",
             L"Save it as UTF-8."},
        .strayLine = {L"Line {1} of the ini file says nothing to Hublink.",
                      L"A line is a [section], key=value, or a comment that begins with a semicolon."},
        .controlCharacter = {L"Line {1} of the ini file holds a control character.",
                             L"Nothing, if it stands in a comment; else write the line again."},
        .sectionTwice = {L"The section [{1}] stands twice, in the lines {2} and {3}. Only the first one counts.",
                         L"Put both together, and remove the second one."},
        .unknownSection = {L"Hublink does not know the section [{1}] in line {2}.", L"Remove it, or correct its name."},
        .bookNotCounted =
            {L"The section [{1}] in line {2} is not read: NbPublicAddressBook counts fewer address books.",
             L"Raise NbPublicAddressBook, or remove the section."},
        .keyTwice = {L"[{1}] {2} stands twice, in the lines {3} and {4}. Only the first one counts.",
                     L"Remove one of them."},
        .unknownKey = {L"Hublink does not know the key {2} in line {3}, section [{1}].",
                       L"Remove it, or correct its name."},
        .likelyKey = {L"Hublink does not know the key {2} in line {3}, section [{1}].", L"Perhaps {4} is meant."},
        .keyElsewhere = {L"The key {2} in line {3} does not belong in the section [{1}].", L"Move it to [{4}]."},
        .moreLeftOut = {L"The ini file has more of these than are listed here.",
                        L"Mend what stands above, and run HublinkCheck again."},
        .on = L"[{1}] {2} = true: on",
        .off = L"[{1}] {2} = {3}: off",
        .offThoughMeantOn = {L"[{1}] {2} = {3}: off, since only the exact text \"true\" is on.",
                             L"Write {2}=true, or {2}=false if off is meant."},
        .offForOtherText = {L"[{1}] {2} = {3}: off, since only the exact text \"true\" is on.", L"Write {2}=false."},
        .absentOn = L"[{1}] {2} is not in the file: on",
        .absentOff = L"[{1}] {2} is not in the file: off",
        .milliseconds = L"[{1}] {2} = {3}: {3} milliseconds",
        .notNumber =
            {L"[{1}] {2} = {3} is no whole number from -32768 to 32767. Hublink's reading of these settings ends "
             L"here: what stands behind it is not read.",
             L"Write a number from 0 to 32767, or remove the line so that the default counts."},
        .value = L"[{1}] {2} = {3}",
        .empty = L"[{1}] {2} is empty",
        .absent = L"[{1}] {2} is not in the file: {3} counts",
        .absentEmpty = L"[{1}] {2} is not in the file",
        .cut = {L"[{1}] {2} is longer than 1023 characters; Hublink reads no more of it.", L"Shorten it."},
        .baseParts =
            {L"[{1}] {2} has fewer than five parts, so nothing of it counts.",
             L"Write file|server|main view|view by telephone number|view by mail address; parts may be empty."},
        .unknownGroupware = {L"[Application] {1} names \"{2}\", which is no groupware.",
                             L"Write OUTLOOK, LOTUS or OUTLOOK,LOTUS: capital letters, no blanks."},
        .typeReplaced = {L"type1 is not empty, so it counts and type does not.", L"Empty type1 if type is meant."},
        .noGroupware = {L"No groupware is in use: Hublink stops as soon as it is started.",
                        L"Write type=OUTLOOK, type=LOTUS or type=OUTLOOK,LOTUS into [Application] (type1, if it is not "
                        L"empty)."},
        .stopRequest = {L"[Application] kill = true: a Hublink that runs is asked to stop.",
                        L"Nothing: the next start sets it back to false."},
        .outlookNotRead = L"[outlook] is not read: Outlook is not in use.",
        .lotusNotRead = L"The sections for Lotus Notes are not read: Notes is not in use.",
        .readingEnds =
            {L"[lotus] {1} makes no sense. The reading of the settings for Notes ends there: switches and call "
             L"history are not read.",
             L"NbPublicAddressBook counts the address books that are described; Order lists those that are "
             L"searched, as Base 1,Base 2."},
        .booksInOrder = L"Address books that are searched, in this order: {1} ({2})",
        .bookNotDescribed = {L"NbPublicAddressBook counts an address book whose section [{1}] is not in the file.",
                             L"Describe it there, or lower NbPublicAddressBook."},
        .bookWithoutViews = {L"The address book in place {1} of the order names no view: it is never searched.",
                             L"Name a main view or a view by telephone number in its base."},
        .noPersonalBook = {L"No address book in the order is a personal one: no contact is made in Notes.",
                           L"Write PersonalAddressBook=true into its section, if contacts are wanted."},
    },
    .groupware{
        .title = L"Groupware",
        .none = L"None is looked for: the settings name none.",
        .unknown = {L"Which groupware is in use is not known: no settings could be read.",
                    L"The ini file comes first: see above."},
        .outlookNotUsed = L"Outlook is not in use.",
        .notesNotUsed = L"Lotus Notes is not in use.",
        .newOutlook = {L"The new Outlook runs. No program can reach it.",
                       L"Switch back to the classic Outlook, and keep that open."},
    },
    .notesData{
        .folder = L"The data folder of Notes is {1}.",
        .folderUnknown =
            {L"The registry names no data folder of Notes 4 or 5: Hublink copies no databases there, and whether Notes "
             L"has them cannot be seen.",
             L"See that the databases that [lotus call log description] and [lotus personnel log description] name lie "
             L"in the data folder of Notes, beside names.nsf."},
        .folderMissing = {L"The data folder of Notes, {1}, is not there.",
                          L"Repair the installation of Notes; without its databases it gets neither call history nor "
                          L"log."},
        .database = L"The database {1} is there.",
        .copied = {L"The database {1} is not in the data folder of Notes yet.",
                   L"Nothing: the next start of Hublink copies it there, if its user may."},
        .historyMissing = {L"The database {1} is not in the data folder of Notes: Notes gets no call history.",
                           L"Copy it there, or name another one as base in [lotus call log description]."},
        .logMissing = {L"The database {1} is not in the data folder of Notes: Notes gets no log document.",
                       L"Copy it there, or name another one as base in [lotus personnel log description]."},
    },
    .map{
        .title = L"Identifier map",
        .registersItself = {L"The map's server is not registered yet.",
                            L"Nothing: Hublink registers {1} at its first start."},
        .otherServer = {L"The map's server is another program, {1}. Its map is not the one below.",
                        L"Nothing, if the softphone has brought it along; else run PavexConvId /RegServer in Hublink's "
                        L"folder."},
        .store = L"The map's file is {1}.",
        .missing = L"It is not there yet: nothing has been copied.",
        .blank = L"It is empty: nothing has been copied.",
        .sound = L"It is sound; records: {1}.",
        .unfinished = {L"Its last entry is not finished; records: {1}.",
                       L"Nothing: the entry was never answered, and the next start cuts it off."},
        .damaged =
            {L"It is damaged; records that are still readable: {1}.",
             L"Start Hublink: it keeps a copy and repairs the file. What is lost is copied into the groupware once "
             L"more; restore the file from a backup while Hublink does not run, if there is one."},
        .newer = {L"It was written by a newer version of Hublink.", L"Install that version, or a later one."},
        .unreadable = {L"It cannot be read: {1}", L"Let this user read and write it. Without it every start copies all "
                                                  L"records once more."},
        .records = L"{1}: contacts {2}, calls {3}",
        .foreignRecords = {L"Records that Hublink does not make, of application {1}: {2}.",
                           L"Nothing, if another program uses the map."},
        .replacement = {L"A replacement of the file, which never came into use, lies beside it.",
                        L"Nothing: the next start uses it, removes it or sets it aside, whichever is right."},
        .damagedCopies = {L"Damaged files that earlier starts have set aside: {1}.",
                          L"Nothing; they can be removed when nobody misses anything."},
        .noFolder = {L"Windows names no folder for this user's application data: Hublink cannot remember what it has "
                     L"copied.",
                     L"Repair the user's profile."},
        .listTitle = L"What mirrors what: softphone, groupware, program, kind",
        .contact = L"contact",
        .call = L"call",
        .mapping = L"{1}  {2}  {3}  {4}",
        .nothingMapped = L"(nothing)",
    },
    .dictionary{
        .title = L"Language of the journal",
        .usersLanguage = L"It is the user's own, {1}.",
        .chosenLanguage = L"It is set to {1}.",
        .file = L"The texts come from {1}.",
        .otherLanguage = {L"This language has no texts of its own; they come from {1}.",
                          L"Set \"language\" in [outlook] to one that has, or add a file for this one."},
        .none = {L"No file of texts lies beside Hublink; call types are English.",
                 L"Copy the folder \"dictionary\" beside hublink.exe."},
        .withoutTexts = {L"{1} holds no texts; call types are English.",
                         L"Copy the file again. It is UTF-16, with a section [history]."},
        .notLoaded = L"Without Outlook no language is loaded; call types are English.",
    },
    .rights{
        .title = L"Rights",
        .writable = L"{1} may be written to.",
        .connectorFolder =
            {L"This user may not write into {1}.",
             L"Copy pavexconnector.ini there as an administrator; else Hublink has no settings and stops."},
        .iniFile =
            {L"This user may not write the ini file {1}.",
             L"Nothing, if an administrator keeps the settings: only the user's own stop through \"kill\" is lost."},
        .mapFolder = {L"This user may not write into {1}.",
                      L"Allow it: without the identifier map every start copies all records once more."},
        .fileInPlaceOfMapFolder =
            {L"{1} is a file; a folder should stand there.",
             L"Remove the file, or rename it; the folder is made then. Without it every start copies all records "
             L"once more."},
        .mapFile = {L"This user may not write the identifier map {1}.",
                    L"Allow it, and take a write protection away: else every start copies all records once more."},
        .extensionKey = {L"\"Extension\" is on, but this user may not register it in HKEY_LOCAL_MACHINE\\SOFTWARE\\"
                         L"Microsoft\\Exchange\\Client\\Extensions.",
                         L"Let an administrator register it, or switch Extension off."},
        .extensionKeyWritable = L"The client extension of \"Extension\" may be registered.",
        .madeWhenNeeded = L"{1} is made when it is needed.",
        .noLogFile = L"Hublink writes no log file: its log is the journal item \"Connector Log\" in Outlook, the log "
                     L"document in Notes.",
    },
    .processes{
        .title = L"Running programs",
        .checkElevated =
            {L"HublinkCheck itself runs with an administrator's rights (elevated): server, user, map and "
             L"rights are those of the account that it runs as.",
             L"Nothing, if Hublink runs as that account; else run HublinkCheck as the user who works here, "
             L"without \"Run as administrator\"."},
        .checkNotElevated = L"HublinkCheck itself runs with ordinary rights.",
        .runs = L"{1} runs (process {2}).",
        .runsElevated = L"{1} runs elevated (process {2}).",
        .runsNot = L"{1} does not run.",
        .hublinkRunsNot = {L"hublink.exe does not run.", L"Start Hublink, if it should."},
        .softphoneRunsNot = {L"pavex.exe does not run. Hublink stops without it.",
                             L"Start the softphone, then Hublink."},
        .otherUser = {L"{1} runs as another user (process {2}): what belongs to this user cannot reach it.",
                      L"Close it and start it as the user who works here."},
        .unknownRights =
            {L"{1} runs (process {2}); with which rights cannot be seen, perhaps as an administrator.",
             L"Run HublinkCheck as administrator to see it. One that runs elevated cannot be reached by one "
             L"that does not."},
        .moreRights = {L"{1} runs elevated and {2} does not: neither can reach the other.",
                       L"Close {1} and start it without \"Run as administrator\"."},
        .several = {L"{1} runs several times: {2}.", L"Nothing, if that is meant; Hublink follows the first one."},
        .notListed = {L"Windows does not list its running programs.",
                      L"Run HublinkCheck again when the system is less busy."},
    },
};

}
