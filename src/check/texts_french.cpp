#include "check/texts.h"

namespace hublink::check {

constinit const Texts french{
    .report{
        .title = L"Ce que Hublink {1} trouverait sur cet ordinateur, le {2}",
        .system = L"Windows {1}",
        .ok = L"ok",
        .note = L"note",
        .problem = L"problème",
        .nothingWrong = L"Aucun problème n'a été trouvé. Notes : {1}.",
        .verdict = L"Problèmes : {1}. Notes : {2}.",
        .saved = L"Le rapport a été enregistré dans {1}.",
        .notSaved = L"Le rapport ne peut être enregistré dans {1} : {2}. Un fichier existant n'est jamais "
                    L"remplacé.",
        .notUnderstood = L"Incompris : {1}",
        .usage =
            L"HublinkCheck dit ce que Hublink trouverait sur cet ordinateur, et ce qu'il faut faire. Il ne modifie "
            L"rien.\r\n"
            L"\r\n"
            L"HublinkCheck [--map] [--language en|fr] [--save FICHIER [--with-names]]\r\n"
            L"HublinkCheck --help\r\n"
            L"\r\n"
            L"  --map           liste ce qui correspond à quoi : softphone et messagerie\r\n"
            L"  --language      la langue du rapport\r\n"
            L"  --save FICHIER  enregistre aussi le rapport, dans un nouveau fichier, sans noms de personnes ni de\r\n"
            L"                  machines\r\n"
            L"  --with-names    les y laisse\r\n"
            L"  --help          affiche ceci, comme -h et /?\r\n"
            L"\r\n"
            L"Code de retour : 0 sans problème, 1 s'il y en a, 2 pour une ligne de commande erronée ou un rapport\r\n"
            L"qui n'a pu être enregistré.\r\n",
        .pressKey = L"Appuyez sur une touche pour fermer cette fenêtre.",
        .failed = L"HublinkCheck ne peut continuer : ",
    },
    .softphone{
        .title = L"Softphone",
        .folder = L"Le dossier du softphone est {1}.",
        .noFolder =
            {L"Le registre n'indique aucun dossier du softphone.",
             L"Installez le softphone. La valeur texte « Path » de HKEY_LOCAL_MACHINE\\SOFTWARE\\"
             L"Microsoft\\Windows\\CurrentVersion\\App Paths\\Pavex.exe indique son dossier. Sans elle, Hublink "
             L"ne trouve pas ses paramètres et s'arrête."},
        .folderUnreadable =
            {L"Le registre contient la clé du softphone, mais pas de dossier utilisable.",
             L"Donnez à HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\"
             L"Pavex.exe une valeur texte simple « Path » (REG_SZ) de 255 caractères au plus, ou réinstallez le "
             L"softphone."},
        .folderInOtherView = {L"Seule la partie 64 bits du registre indique le dossier du softphone, {1}. "
                              L"Hublink lit la partie 32 bits.",
                              L"Installez le softphone 32 bits, ou mettez aussi la valeur « Path » dans la "
                              L"partie 32 bits."},
        .folderMissing = {L"Le dossier du softphone, {1}, n'existe pas.",
                          L"Réinstallez le softphone, ou corrigez « Path » dans sa clé App Paths."},
        .programMissing = {L"pavex.exe ne se trouve pas dans {1}.",
                           L"Rien, si le programme du softphone est ailleurs ; sinon, réinstallez-le."},
        .server = L"Le serveur du softphone est {1}.",
        .noServer = {L"Le registre n'indique aucun serveur du softphone pour cet utilisateur.",
                     L"Rien, si le softphone fonctionne. Il écrit la valeur « HostZRB » dans HKEY_CURRENT_USER\\"
                     L"Software\\Orvel\\Pavex\\Name quand cet utilisateur s'y identifie."},
        .user = L"L'utilisateur du softphone est {1}.",
        .noUser = {L"Le registre n'indique aucun utilisateur du softphone.",
                   L"Rien, si le softphone fonctionne. Il écrit la valeur « Man » dans HKEY_CURRENT_USER\\"
                   L"Software\\Orvel\\Pavex\\Name quand cet utilisateur s'y identifie."},
    },
    .classes{
        .registered = L"{1} est enregistré ; son programme est {2}.",
        .registered64 = L"{1} est enregistré par un programme 64 bits, {2}. Hublink l'atteint quand même.",
        .inProcess = L"{1} est enregistré ; Windows le charge depuis {2}.",
        .offered = L"{1} est en marche et peut être atteint.",
        .notRegistered = {L"{1} n'est pas enregistré : Hublink ne peut atteindre ce programme.",
                          L"Installez le programme, ou réparez son installation."},
        .withoutServer = {L"{1} est enregistré sans programme.", L"Réparez l'installation du programme."},
        .serverMissing = {L"{1} est enregistré, mais son programme {2} n'existe pas.",
                          L"Réinstallez le programme, ou réparez son installation."},
        .inProcess64 = {L"{1} est une bibliothèque 64 bits, {2}, que Hublink, programme 32 bits, ne peut charger.",
                        L"Installez la version 32 bits du programme."},
    },
    .ini{
        .title = L"Fichier ini",
        .file = L"Le fichier ini est {1}.",
        .ansi = L"Il est écrit dans la page de codes du système (ANSI).",
        .utf8 = L"Il est écrit en UTF-8.",
        .utf16 = L"Il est écrit en UTF-16.",
        .noSoftphone =
            {L"Sans le dossier du softphone, Hublink cherche {1} là où il est lancé, et s'arrête s'il n'y en a pas.",
             L"D'abord le dossier du softphone : voir plus haut."},
        .toBeInstalled =
            {L"Le fichier ini {1} n'existe pas encore ; voici le fichier par défaut.",
             L"Lancez Hublink une fois : il y copie le fichier par défaut, si son utilisateur en a le droit."},
        .missing = {L"Le fichier ini {1} n'existe pas, et aucun fichier par défaut n'accompagne Hublink.",
                    L"Copiez-y pavexconnector.ini. Sans lui, Hublink s'arrête."},
        .noFolder = {L"Le dossier {1} n'existe pas. Hublink n'en crée pas.",
                     L"Créez le dossier et copiez-y pavexconnector.ini. Sans lui, Hublink s'arrête."},
        .fileInPlaceOfFolder =
            {L"{1} est un fichier ; il devrait y avoir là un dossier.",
             L"Supprimez ou renommez ce fichier, créez le dossier et copiez-y pavexconnector.ini. Sans lui, Hublink "
             L"s'arrête."},
        .isFolder = {L"{1} est un dossier ; il devrait y avoir là un fichier.",
                     L"Supprimez le dossier et copiez-y pavexconnector.ini."},
        .unreadable = {L"Le fichier ini {1} ne peut être lu : {2}.",
                       L"Permettez à cet utilisateur de le lire, et fermez le programme qui se le réserve."},
        .tooLarge = {L"Le fichier ini {1} dépasse 4 Mo. Il ne contient pas de paramètres et n'a pas été lu.",
                     L"Copiez-y de nouveau pavexconnector.ini."},
        .beyondCodePage = {L"Le chemin du fichier ini {1} contient des caractères absents de la page de codes du "
                           L"système : Hublink ne peut le lire.",
                           L"Installez le softphone dans un dossier dont le nom n'en contient pas."},
        .notText = {L"Le fichier ini n'est pas un texte.", L"Copiez-y de nouveau pavexconnector.ini."},
        .utf8Mark =
            {L"Le fichier ini commence par la marque d'UTF-8, que Windows prend pour une partie de la première "
             L"ligne.",
             L"Enregistrez-le en UTF-8 sans marque (BOM), en ANSI, ou commencez-le par une ligne de commentaire."},
        .utf16Reversed = {L"Le fichier ini est écrit en UTF-16 d'ordre inverse, que Windows ne lit pas.",
                          L"Enregistrez-le en ANSI ou en UTF-8."},
        .lostCharacters =
            {L"Le fichier ini contient des caractères absents de la page de codes du système ; d'un fichier "
             L"UTF-16, ils sont perdus.",
             L"Enregistrez-le en UTF-8."},
        .strayLine = {L"La ligne {1} du fichier ini ne dit rien à Hublink.",
                      L"Une ligne est une [section], clé=valeur, ou un commentaire qui commence par un point-virgule."},
        .controlCharacter = {L"La ligne {1} du fichier ini contient un caractère de contrôle.",
                             L"Rien, s'il est dans un commentaire ; sinon, réécrivez la ligne."},
        .sectionTwice = {L"La section [{1}] figure deux fois, aux lignes {2} et {3}. Seule la première compte.",
                         L"Réunissez les deux et supprimez la seconde."},
        .unknownSection = {L"Hublink ne connaît pas la section [{1}], ligne {2}.",
                           L"Supprimez-la, ou corrigez son nom."},
        .bookNotCounted = {L"La section [{1}], ligne {2}, n'est pas lue : NbPublicAddressBook compte moins de carnets "
                           L"d'adresses.",
                           L"Augmentez NbPublicAddressBook, ou supprimez la section."},
        .keyTwice = {L"[{1}] {2} figure deux fois, aux lignes {3} et {4}. Seule la première compte.",
                     L"Supprimez l'une des deux."},
        .unknownKey = {L"Hublink ne connaît pas la clé {2}, ligne {3}, section [{1}].",
                       L"Supprimez-la, ou corrigez son nom."},
        .likelyKey = {L"Hublink ne connaît pas la clé {2}, ligne {3}, section [{1}].", L"Peut-être s'agit-il de {4}."},
        .keyElsewhere = {L"La clé {2}, ligne {3}, n'a pas sa place dans la section [{1}].", L"Déplacez-la dans [{4}]."},
        .moreLeftOut = {L"Le fichier ini en contient davantage que ce qui est indiqué ici.",
                        L"Corrigez ce qui précède, puis relancez HublinkCheck."},
        .on = L"[{1}] {2} = true : actif",
        .off = L"[{1}] {2} = {3} : inactif",
        .offThoughMeantOn = {L"[{1}] {2} = {3} : inactif, car seul le texte exact « true » est actif.",
                             L"Écrivez {2}=true, ou {2}=false si c'est ce que vous voulez."},
        .offForOtherText = {L"[{1}] {2} = {3} : inactif, car seul le texte exact « true » est actif.",
                            L"Écrivez {2}=false."},
        .absentOn = L"[{1}] {2} ne figure pas dans le fichier : actif",
        .absentOff = L"[{1}] {2} ne figure pas dans le fichier : inactif",
        .milliseconds = L"[{1}] {2} = {3} : {3} millisecondes",
        .notNumber = {L"[{1}] {2} = {3} n'est pas un nombre entier de -32768 à 32767. Hublink cesse là de lire ces "
                      L"paramètres : ce qui suit n'est pas lu.",
                      L"Écrivez un nombre de 0 à 32767, ou supprimez la ligne pour que la valeur par défaut compte."},
        .value = L"[{1}] {2} = {3}",
        .empty = L"[{1}] {2} est vide",
        .absent = L"[{1}] {2} ne figure pas dans le fichier : {3} compte",
        .absentEmpty = L"[{1}] {2} ne figure pas dans le fichier",
        .cut = {L"[{1}] {2} dépasse 1023 caractères ; Hublink n'en lit pas davantage.", L"Raccourcissez-la."},
        .baseParts =
            {L"[{1}] {2} a moins de cinq parties ; rien n'en compte.",
             L"Écrivez fichier|serveur|vue principale|vue par numéro|vue par adresse ; des parties peuvent être "
             L"vides."},
        .unknownGroupware = {L"[Application] {1} indique « {2} », qui n'est pas une messagerie.",
                             L"Écrivez OUTLOOK, LOTUS ou OUTLOOK,LOTUS : en majuscules, sans espace."},
        .typeReplaced = {L"type1 n'est pas vide : c'est lui qui compte, et non type.",
                         L"Videz type1 si c'est type que vous voulez."},
        .noGroupware =
            {L"Aucune messagerie n'est utilisée : Hublink s'arrête dès son lancement.",
             L"Écrivez type=OUTLOOK, type=LOTUS ou type=OUTLOOK,LOTUS dans [Application] (dans type1, s'il n'est "
             L"pas vide)."},
        .stopRequest = {L"[Application] kill = true : un Hublink en marche est prié de s'arrêter.",
                        L"Rien : le prochain lancement le remet à false."},
        .outlookNotRead = L"[outlook] n'est pas lue : Outlook n'est pas utilisé.",
        .lotusNotRead = L"Les sections de Lotus Notes ne sont pas lues : Notes n'est pas utilisé.",
        .readingEnds =
            {L"[lotus] {1} n'a pas de sens. La lecture des paramètres de Notes s'arrête là : ni les options ni "
             L"l'historique des appels ne sont lus.",
             L"NbPublicAddressBook compte les carnets d'adresses décrits ; Order liste ceux où l'on cherche : "
             L"Base 1,Base 2."},
        .booksInOrder = L"Carnets d'adresses où l'on cherche, dans cet ordre : {1} ({2})",
        .bookNotDescribed =
            {L"NbPublicAddressBook compte un carnet d'adresses dont la section [{1}] ne figure pas dans le "
             L"fichier.",
             L"Décrivez-le là, ou diminuez NbPublicAddressBook."},
        .bookWithoutViews = {L"Le carnet d'adresses au rang {1} n'indique aucune vue : on n'y cherche jamais.",
                             L"Indiquez dans sa base une vue principale ou une vue par numéro."},
        .noPersonalBook =
            {L"Aucun carnet d'adresses de la liste n'est personnel : aucun contact n'est créé dans Notes.",
             L"Écrivez PersonalAddressBook=true dans sa section, si vous voulez des contacts."},
    },
    .groupware{
        .title = L"Messagerie",
        .none = L"Aucune n'est cherchée : les paramètres n'en indiquent pas.",
        .unknown = {L"On ne sait pas quelle messagerie est utilisée : aucun paramètre n'a pu être lu.",
                    L"D'abord le fichier ini : voir plus haut."},
        .outlookNotUsed = L"Outlook n'est pas utilisé.",
        .notesNotUsed = L"Lotus Notes n'est pas utilisé.",
        .newOutlook = {L"Le nouvel Outlook est en marche. Aucun programme ne peut l'atteindre.",
                       L"Revenez à l'Outlook classique, et gardez-le ouvert."},
    },
    .notesData{
        .folder = L"Le dossier de données de Notes est {1}.",
        .folderUnknown =
            {L"Le registre n'indique aucun dossier de données de Notes 4 ou 5 : Hublink n'y copie pas de bases, et on "
             L"ne voit pas si Notes les a.",
             L"Assurez-vous que les bases indiquées dans [lotus call log description] et [lotus personnel log "
             L"description] se trouvent dans le dossier de données de Notes, à côté de names.nsf."},
        .folderMissing = {L"Le dossier de données de Notes, {1}, n'existe pas.",
                          L"Réparez l'installation de Notes ; sans ses bases, il ne reçoit ni historique des appels ni "
                          L"journal."},
        .database = L"La base {1} s'y trouve.",
        .copied = {L"La base {1} n'est pas encore dans le dossier de données de Notes.",
                   L"Rien : le prochain lancement de Hublink l'y copie, si son utilisateur en a le droit."},
        .historyMissing = {L"La base {1} n'est pas dans le dossier de données de Notes : Notes ne reçoit pas "
                           L"d'historique des appels.",
                           L"Copiez-l'y, ou indiquez-en une autre comme base dans [lotus call log description]."},
        .logMissing = {L"La base {1} n'est pas dans le dossier de données de Notes : Notes ne reçoit pas de document "
                       L"journal.",
                       L"Copiez-l'y, ou indiquez-en une autre comme base dans [lotus personnel log description]."},
    },
    .map{
        .title = L"Table de correspondance",
        .registersItself = {L"Le serveur de la table n'est pas encore enregistré.",
                            L"Rien : Hublink enregistre {1} à son premier lancement."},
        .otherServer = {L"Le serveur de la table est un autre programme, {1}. Sa table n'est pas celle qui suit.",
                        L"Rien, si le softphone l'a apporté ; sinon, lancez PavexConvId /RegServer dans le "
                        L"dossier de Hublink."},
        .store = L"Le fichier de la table est {1}.",
        .missing = L"Il n'existe pas encore : rien n'a été copié.",
        .blank = L"Il est vide : rien n'a été copié.",
        .sound = L"Il est sain ; enregistrements : {1}.",
        .unfinished = {L"Sa dernière entrée est inachevée ; enregistrements : {1}.",
                       L"Rien : cette entrée n'a jamais été confirmée, et le prochain lancement la retire."},
        .damaged =
            {L"Il est endommagé ; enregistrements encore lisibles : {1}.",
             L"Lancez Hublink : il garde une copie et répare le fichier. Ce qui est perdu sera copié une fois de "
             L"plus dans la messagerie ; s'il y a une sauvegarde, restaurez le fichier pendant que Hublink est "
             L"arrêté."},
        .newer = {L"Il a été écrit par une version plus récente de Hublink.",
                  L"Installez cette version, ou une suivante."},
        .unreadable = {L"Il ne peut être lu : {1}", L"Permettez à cet utilisateur de le lire et de l'écrire. Sans lui, "
                                                    L"chaque lancement recopie tout."},
        .records = L"{1} : contacts {2}, appels {3}",
        .foreignRecords = {L"Enregistrements que Hublink ne fait pas, de l'application {1} : {2}.",
                           L"Rien, si un autre programme utilise la table."},
        .replacement = {L"Un fichier de remplacement, qui n'a jamais servi, se trouve à côté.",
                        L"Rien : le prochain lancement s'en sert, le supprime ou le met de côté, selon le cas."},
        .damagedCopies = {L"Fichiers endommagés mis de côté par des lancements précédents : {1}.",
                          L"Rien ; on peut les supprimer si rien ne manque à personne."},
        .noFolder =
            {L"Windows n'indique aucun dossier de données pour cet utilisateur : Hublink ne peut se souvenir de ce "
             L"qu'il a copié.",
             L"Réparez le profil de l'utilisateur."},
        .listTitle = L"Ce qui correspond à quoi : softphone, messagerie, programme, nature",
        .contact = L"contact",
        .call = L"appel",
        .mapping = L"{1}  {2}  {3}  {4}",
        .nothingMapped = L"(rien)",
    },
    .dictionary{
        .title = L"Langue du journal",
        .usersLanguage = L"C'est celle de l'utilisateur, {1}.",
        .chosenLanguage = L"Elle est fixée à {1}.",
        .file = L"Les textes viennent de {1}.",
        .otherLanguage =
            {L"Cette langue n'a pas de textes à elle ; ils viennent de {1}.",
             L"Donnez à « language » de [outlook] une langue qui en a, ou ajoutez un fichier pour celle-ci."},
        .none = {L"Aucun fichier de textes n'accompagne Hublink ; les types d'appel sont en anglais.",
                 L"Copiez le dossier « dictionary » à côté de hublink.exe."},
        .withoutTexts = {L"{1} ne contient pas de textes ; les types d'appel sont en anglais.",
                         L"Recopiez ce fichier. Il est en UTF-16, avec une section [history]."},
        .notLoaded = L"Sans Outlook, aucune langue n'est chargée ; les types d'appel sont en anglais.",
    },
    .rights{
        .title = L"Droits",
        .writable = L"On peut écrire dans {1}.",
        .connectorFolder =
            {L"Cet utilisateur ne peut écrire dans {1}.",
             L"Copiez-y pavexconnector.ini en tant qu'administrateur ; sinon, Hublink n'a pas de paramètres "
             L"et s'arrête."},
        .iniFile =
            {L"Cet utilisateur ne peut écrire dans le fichier ini {1}.",
             L"Rien, si un administrateur tient les paramètres : seul l'arrêt par « kill » manque à l'utilisateur."},
        .mapFolder = {L"Cet utilisateur ne peut écrire dans {1}.",
                      L"Permettez-le : sans la table de correspondance, chaque lancement recopie tout."},
        .fileInPlaceOfMapFolder =
            {L"{1} est un fichier ; il devrait y avoir là un dossier.",
             L"Supprimez ou renommez ce fichier ; le dossier sera alors créé. Sans lui, chaque lancement recopie "
             L"tout."},
        .mapFile = {L"Cet utilisateur ne peut écrire dans la table de correspondance {1}.",
                    L"Permettez-le, et retirez toute protection en écriture : sinon, chaque lancement recopie tout."},
        .extensionKey =
            {L"« Extension » est actif, mais cet utilisateur ne peut l'enregistrer dans HKEY_LOCAL_MACHINE\\"
             L"SOFTWARE\\Microsoft\\Exchange\\Client\\Extensions.",
             L"Faites-la enregistrer par un administrateur, ou rendez Extension inactif."},
        .extensionKeyWritable = L"L'extension cliente d'« Extension » peut être enregistrée.",
        .madeWhenNeeded = L"{1} est créé quand il le faut.",
        .noLogFile =
            L"Hublink n'écrit pas de fichier journal : son journal est l'élément « Connector Log » d'Outlook, le "
            L"document journal de Notes.",
    },
    .processes{
        .title = L"Programmes en marche",
        .checkElevated =
            {L"HublinkCheck lui-même a les droits d'un administrateur : serveur, utilisateur, table et droits "
             L"sont ceux du compte qui l'a lancé.",
             L"Rien, si Hublink est lancé par ce compte ; sinon, relancez HublinkCheck comme l'utilisateur "
             L"qui travaille ici, sans « Exécuter en tant qu'administrateur »."},
        .checkNotElevated = L"HublinkCheck lui-même a des droits ordinaires.",
        .runs = L"{1} est en marche (processus {2}).",
        .runsElevated = L"{1} est en marche avec les droits d'un administrateur (processus {2}).",
        .runsNot = L"{1} n'est pas en marche.",
        .hublinkRunsNot = {L"hublink.exe n'est pas en marche.", L"Lancez Hublink, s'il doit l'être."},
        .softphoneRunsNot = {L"pavex.exe n'est pas en marche. Sans lui, Hublink s'arrête.",
                             L"Lancez le softphone, puis Hublink."},
        .otherUser =
            {L"{1} est en marche pour un autre utilisateur (processus {2}) : les programmes de cet utilisateur ne "
             L"peuvent l'atteindre.",
             L"Fermez-le et lancez-le en tant que celui qui travaille ici."},
        .unknownRights =
            {L"{1} est en marche (processus {2}) ; on ne voit pas avec quels droits, peut-être ceux d'un "
             L"administrateur.",
             L"Lancez HublinkCheck en tant qu'administrateur pour le voir. Un programme qui a ces droits ne "
             L"peut être atteint par un autre qui ne les a pas."},
        .moreRights =
            {L"{1} a les droits d'un administrateur et {2} ne les a pas : aucun des deux ne peut atteindre l'autre.",
             L"Fermez {1} et relancez-le sans « Exécuter en tant qu'administrateur »."},
        .several = {L"{1} est en marche plusieurs fois : {2}.", L"Rien, si c'est voulu ; Hublink suit le premier."},
        .notListed = {L"Windows ne liste pas ses programmes en marche.",
                      L"Relancez HublinkCheck quand le système est moins occupé."},
    },
};

}
