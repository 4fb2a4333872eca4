<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name></name>
    <!-- The program -->
    <message id="AppName">
        <source>Zelvo StandUp</source>
        <translation>Zelvo StandUp</translation>
    </message>
    <message id="ContextMenuOpen">
        <source>Open Zelvo StandUp</source>
        <translation>Ouvrir Zelvo StandUp</translation>
    </message>
    <message id="ContextMenuHistory">
        <source>History</source>
        <translation>Historique</translation>
    </message>
    <message id="ContextMenuSettings">
        <source>Settings…</source>
        <translation>Réglages…</translation>
    </message>
    <message id="ContextMenuExit">
        <source>Quit</source>
        <translation>Quitter</translation>
    </message>
    <message id="TrayTooltipSitting">
        <source>Sitting at %1</source>
        <extracomment>Tooltip and spoken state of the icon in the system tray; %1: height with its unit</extracomment>
        <translation>Position assise, %1</translation>
    </message>
    <message id="TrayTooltipStanding">
        <source>Standing at %1</source>
        <extracomment>Tooltip and spoken state of the icon in the system tray; %1: height with its unit</extracomment>
        <translation>Position debout, %1</translation>
    </message>
    <message id="TrayTooltipPaused">
        <source>Paused at %1; nothing is being recorded</source>
        <extracomment>Tooltip and spoken state of the icon in the system tray; %1: height with its unit</extracomment>
        <translation>En pause à %1, rien n’est enregistré</translation>
    </message>
    <message id="TrayTooltipError">
        <source>The desk reports an error (%1)</source>
        <extracomment>Tooltip and spoken state of the icon in the system tray; %1: height with its unit</extracomment>
        <translation>Le bureau signale une erreur (%1)</translation>
    </message>
    <message id="TrayTooltipChange" numerus="yes">
        <source>%1 minutes to the next change</source>
        <extracomment>Follows the posture and a comma in that tooltip; %1: whole minutes</extracomment>
        <translation>
            <numerusform>%1 minute avant le changement</numerusform>
            <numerusform>%1 minutes avant le changement</numerusform>
        </translation>
    </message>
    <message id="TrayTooltipDisconnected">
        <source>No desk connected</source>
        <extracomment>Tooltip and spoken state of the icon in the system tray</extracomment>
        <translation>Aucun bureau connecté</translation>
    </message>
    <!-- Ending and errors -->
    <message id="Could not save changes while quitting. Quit anyway?">
        <source>Could not save changes while quitting. Quit anyway?</source>
        <translation>Impossible d’enregistrer les modifications en quittant. Quitter quand même ?</translation>
    </message>
    <message id="Quitting now will lose any changes you have made since the last successful save">
        <source>Quitting now will lose any changes you have made since the last successful save</source>
        <translation>Toutes les modifications depuis le dernier enregistrement réussi seront perdues.</translation>
    </message>
    <message id="Quit anyway">
        <source>Quit anyway</source>
        <translation>Quitter quand même</translation>
    </message>
    <message id="Cancel">
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message id="Expected a folder to store application data, found a file (%1).">
        <source>Expected a folder to store application data, found a file (%1).</source>
        <extracomment>%1: path</extracomment>
        <translation>Un dossier est attendu pour les données du programme, mais un fichier a été trouvé (%1).</translation>
    </message>
    <message id="Failed to initialize the store">
        <source>Failed to initialize the store</source>
        <translation>Impossible d’initialiser la base de données</translation>
    </message>
    <message id="There was an error building up the data file.">
        <source>There was an error building up the data file.</source>
        <translation>Une erreur s’est produite lors de la création du fichier de données.</translation>
    </message>
    <message id="StoreDamaged">
        <source>The record of your activities is damaged. It has been left as it is (%1).</source>
        <extracomment>%1: path</extracomment>
        <translation>L’enregistrement des activités est endommagé. Il a été laissé tel quel (%1).</translation>
    </message>
    <message id="StoreDiskFull">
        <source>There is no space left on the disk for the record of your activities (%1).</source>
        <extracomment>%1: path</extracomment>
        <translation>Il ne reste plus de place sur le disque pour l’enregistrement des activités (%1).</translation>
    </message>
    <message id="StoreInUse">
        <source>Another program is using the record of your activities (%1).</source>
        <extracomment>%1: path</extracomment>
        <translation>Un autre programme utilise l’enregistrement des activités (%1).</translation>
    </message>
    <message id="StoreNotWritable">
        <source>The record of your activities is write-protected (%1).</source>
        <extracomment>%1: path</extracomment>
        <translation>L’enregistrement des activités est protégé en écriture (%1).</translation>
    </message>
    <message id="StoreUnreadable">
        <source>The record of your activities cannot be read or written (%1).</source>
        <extracomment>%1: path</extracomment>
        <translation>L’enregistrement des activités ne peut être ni lu ni modifié (%1).</translation>
    </message>
    <message id="StoreNotAFile">
        <source>Found something other than a file where your activity record should be (%1).</source>
        <extracomment>%1: path</extracomment>
        <translation>À la place de l’enregistrement des activités se trouve autre chose qu’un fichier (%1).</translation>
    </message>
    <message id="StoreMissingBesideLog">
        <source>The record of your activities is missing or empty, but the log of its last changes is still there and has been left as it is (%1-wal).</source>
        <extracomment>%1: path</extracomment>
        <translation>L’enregistrement des activités est absent ou vide, mais le journal des dernières modifications existe encore et a été laissé tel quel (%1-wal).</translation>
    </message>
    <message id="StoreTooNew">
        <source>The record of your activities was written by a newer version of this program (%1).</source>
        <extracomment>%1: path</extracomment>
        <translation>L’enregistrement des activités provient d’une version plus récente du programme (%1).</translation>
    </message>
    <message id="StoreForeign">
        <source>The file where your activity record should be holds something else (%1).</source>
        <extracomment>%1: path</extracomment>
        <translation>Le fichier à la place de l’enregistrement des activités contient autre chose (%1).</translation>
    </message>
    <message id="StoreGone">
        <source>The record of your activities was removed or replaced while the program was running (%1).</source>
        <extracomment>%1: path</extracomment>
        <translation>L’enregistrement des activités a été supprimé ou remplacé pendant que le programme tournait (%1).</translation>
    </message>
    <message id="StoreGoneReason">
        <source>The program continues with the file that is there now, or a new one. It contains the current session.</source>
        <translation>Le programme continue avec le fichier qui s’y trouve maintenant, ou avec un nouveau. La session en cours y figure.</translation>
    </message>
    <message id="StoreAdviceReplace">
        <source>Put a copy from your backup in its place, or move the file away to begin with an empty record.</source>
        <translation>Mettre à sa place une copie de sauvegarde, ou déplacer le fichier pour repartir d’un enregistrement vide.</translation>
    </message>
    <message id="StoreAdviceMakeRoom">
        <source>Free up some disk space.</source>
        <translation>Libérer de la place sur le disque.</translation>
    </message>
    <message id="StoreAdviceCloseOther">
        <source>Close the other program.</source>
        <translation>Fermer l’autre programme.</translation>
    </message>
    <message id="StoreAdvicePermissions">
        <source>Check the permissions of the file and of its folder, and that the disk is healthy.</source>
        <translation>Vérifier les droits du fichier et de son dossier, et l’état du disque.</translation>
    </message>
    <message id="StoreAdviceNewerProgram">
        <source>Install the newer version again.</source>
        <translation>Réinstaller la version la plus récente.</translation>
    </message>
    <message id="StoreNothingRecorded">
        <source>Nothing is recorded until then; the program keeps trying.</source>
        <extracomment>Stands behind one of the advices above, where the record cannot be opened</extracomment>
        <translation>Rien n’est enregistré jusque-là ; le programme réessaie de lui-même.</translation>
    </message>
    <message id="StoreKept">
        <source>Unsaved changes are kept while the program runs and saved as soon as possible.</source>
        <extracomment>Stands behind one of the advices above, where the record cannot be saved</extracomment>
        <translation>Ce qui n’a pas pu être enregistré est gardé tant que le programme tourne, et enregistré dès que possible.</translation>
    </message>
    <message id="DataFolderError">
        <source>The folder for the program’s data cannot be used: %1</source>
        <extracomment>%1: path</extracomment>
        <translation>Le dossier des données du programme est inutilisable : %1</translation>
    </message>
    <message id="DataFolderAdvice">
        <source>Nothing is recorded until it can be used. Move whatever is in the way, or allow the program to write there; it keeps trying.</source>
        <translation>Rien n’est enregistré jusque-là. Déplacer ce qui se trouve à sa place ou autoriser l’écriture ; le programme réessaie de lui-même.</translation>
    </message>
    <message id="SettingsDamaged">
        <source>Some lines of the settings file cannot be read (%1). All other settings are kept.</source>
        <extracomment>%1: path</extracomment>
        <translation>Certaines lignes du fichier de réglages sont illisibles (%1). Tous les autres réglages sont gardés.</translation>
    </message>
    <message id="SettingsDamagedReason">
        <source>%1&#10;&#10;The file as it was is kept here: %2</source>
        <extracomment>%1: the lines; %2: path of the copy</extracomment>
        <translation>%1&#10;&#10;Le fichier tel qu’il était est gardé ici : %2</translation>
    </message>
    <!-- Errors that the desk reports -->
    <message id="Error &#10;">
        <source>Desk error
</source>
        <extracomment>Heading of the list of errors; ends with a line break</extracomment>
        <translation>Erreur du bureau
</translation>
    </message>
    <message id="PositionLostError">
        <source>The desk has lost its position. Hold Down until it has reached the bottom.</source>
        <translation>Le bureau a perdu sa position. Maintenir « Descendre » jusqu’en bas.</translation>
    </message>
    <message id="OverloadUpError">
        <source>Overload while going up. Take some weight off the desk.</source>
        <translation>Surcharge à la montée. Alléger le bureau.</translation>
    </message>
    <message id="OverloadDownError">
        <source>Overload while going down. Check that nothing is in the way.</source>
        <translation>Surcharge à la descente. Vérifier que rien ne gêne.</translation>
    </message>
    <!-- Units -->
    <message id="Centimeter">
        <source>cm</source>
        <translation>cm</translation>
    </message>
    <message id="Inches">
        <source>in</source>
        <translation>po</translation>
    </message>
    <message id="Kg">
        <source>kg</source>
        <translation>kg</translation>
    </message>
    <message id="Lbs">
        <source>lb</source>
        <translation>lb</translation>
    </message>
    <message id="Min">
        <source>min</source>
        <translation>min</translation>
    </message>
    <message id="Mins" numerus="yes">
        <source>minutes</source>
        <translation>
            <numerusform>minute</numerusform>
            <numerusform>minutes</numerusform>
        </translation>
    </message>
    <message id="Minutes" numerus="yes">
        <source>minutes</source>
        <translation>
            <numerusform>minute</numerusform>
            <numerusform>minutes</numerusform>
        </translation>
    </message>
    <message id="Appearance">
        <source>Look</source>
        <extracomment>Beside the choice between a light and a dark look of the windows</extracomment>
        <translation>Apparence</translation>
    </message>
    <message id="AppearanceLight">
        <source>Light</source>
        <translation>Claire</translation>
    </message>
    <message id="AppearanceDark">
        <source>Dark</source>
        <translation>Sombre</translation>
    </message>
    <message id="AppearanceDesktop">
        <source>As the desktop</source>
        <translation>Selon le système</translation>
    </message>
    <message id="Calories" numerus="yes">
        <source>Calories</source>
        <translation>
            <numerusform>Calorie</numerusform>
            <numerusform>Calories</numerusform>
        </translation>
    </message>
    <!-- Buttons -->
    <message id="UpButton">
        <source>Up</source>
        <translation>Monter</translation>
    </message>
    <message id="DownButton">
        <source>Down</source>
        <translation>Descendre</translation>
    </message>
    <message id="Memory1">
        <source>Sit</source>
        <translation>S’asseoir</translation>
    </message>
    <message id="Memory2">
        <source>Stand</source>
        <translation>Se lever</translation>
    </message>
    <message id="Memory3">
        <source>Position 3</source>
        <translation>Position 3</translation>
    </message>
    <message id="HistoryButton">
        <source>History</source>
        <translation>Historique</translation>
    </message>
    <message id="SettingsButton">
        <source>Settings</source>
        <translation>Réglages</translation>
    </message>
    <message id="SnoozeButton">
        <source>Snooze</source>
        <translation>Plus tard</translation>
    </message>
    <message id="SkipButton">
        <source>Skip</source>
        <translation>Passer</translation>
    </message>
    <message id="DoneButton">
        <source>Done</source>
        <translation>Terminé</translation>
    </message>
    <message id="CloseButton">
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <!-- Main window -->
    <message id="TableHeightLabel">
        <source>Desk height</source>
        <translation>Hauteur du bureau</translation>
    </message>
    <message id="OfTodaysGoal">
        <source>of today’s goal</source>
        <translation>de l’objectif du jour</translation>
    </message>
    <message id="Today">
        <source>Today</source>
        <extracomment>In the main window, under the circle with what was done today</extracomment>
        <translation>Aujourd’hui</translation>
    </message>
    <message id="CurrentSession">
        <source>Current session</source>
        <translation>Session en cours</translation>
    </message>
    <message id="NoDesk">
        <source>No desk found</source>
        <extracomment>In the main window, above ConnectTable</extracomment>
        <translation>Aucun bureau trouvé</translation>
    </message>
    <message id="ConnectTable">
        <source>Please connect your desk</source>
        <translation>Connecter le bureau</translation>
    </message>
    <message id="AdapterForbidden">
        <source>You have no permission to use the adapter. Run these commands in a terminal to allow it:</source>
        <extracomment>In the main window, above two commands</extracomment>
        <translation>L’adaptateur est branché, mais son ouverture n’est pas permise. Ces commandes dans un terminal l’autorisent :</translation>
    </message>
    <message id="CopyCommands">
        <source>Copy the commands</source>
        <extracomment>Below the two commands of AdapterForbidden</extracomment>
        <translation>Copier les commandes</translation>
    </message>
    <message id="CommandsCopied">
        <source>Copied</source>
        <extracomment>Takes the place of CopyCommands</extracomment>
        <translation>Copié</translation>
    </message>
    <!-- Reminder: the headline when the user stands and is asked to sit -->
    <message id="StandingMessage1">
        <source>Time to take a seat</source>
        <translation>C’est l’heure de s’asseoir</translation>
    </message>
    <message id="StandingMessage2">
        <source>Well stood! Have a seat.</source>
        <translation>Bien tenu ! Place au fauteuil.</translation>
    </message>
    <message id="StandingMessage3">
        <source>Your legs have earned a rest</source>
        <translation>Un repos mérité pour les jambes</translation>
    </message>
    <message id="StandingMessage4">
        <source>How about sitting for a while?</source>
        <translation>Et si on s’asseyait un moment ?</translation>
    </message>
    <message id="StandingMessage5">
        <source>A good moment to sit down</source>
        <translation>Le bon moment pour s’asseoir</translation>
    </message>
    <message id="StandingMessage6">
        <source>Your chair is ready when you are</source>
        <translation>La chaise est prête</translation>
    </message>
    <message id="StandingMessage7">
        <source>Let the desk come down with you</source>
        <translation>Descendre avec le bureau</translation>
    </message>
    <message id="StandingMessage8">
        <source>Ease back into your chair</source>
        <translation>Retour en douceur à la chaise</translation>
    </message>
    <message id="StandingMessage9">
        <source>Nicely done. Now take a rest.</source>
        <translation>Bravo. Maintenant, on souffle.</translation>
    </message>
    <message id="StandingMessage10">
        <source>A change of view: sit for a bit</source>
        <translation>Changement de vue : place à la chaise</translation>
    </message>
    <!-- Reminder: the headline when the user sits and is asked to stand -->
    <message id="SittingMessage1">
        <source>Time to stand up</source>
        <translation>C’est l’heure de se lever</translation>
    </message>
    <message id="SittingMessage2">
        <source>Ready for a stretch?</source>
        <translation>Envie de s’étirer ?</translation>
    </message>
    <message id="SittingMessage3">
        <source>A good moment to get on your feet</source>
        <translation>Le bon moment pour se lever</translation>
    </message>
    <message id="SittingMessage4">
        <source>Your back will enjoy this: stand up</source>
        <translation>Le dos dit merci : debout</translation>
    </message>
    <message id="SittingMessage5">
        <source>Give your legs something to do</source>
        <translation>De l’exercice pour les jambes</translation>
    </message>
    <message id="SittingMessage6">
        <source>How about standing for a while?</source>
        <translation>Et si on se levait un moment ?</translation>
    </message>
    <message id="SittingMessage7">
        <source>Rise with your desk</source>
        <translation>Monter avec le bureau</translation>
    </message>
    <message id="SittingMessage8">
        <source>A new angle on things: stand up</source>
        <translation>Un autre point de vue : debout</translation>
    </message>
    <message id="SittingMessage9">
        <source>A little stand, a clearer head</source>
        <translation>Debout, les idées plus claires</translation>
    </message>
    <message id="SittingMessage10">
        <source>Up you get, in your own time</source>
        <translation>Debout, sans se presser</translation>
    </message>
    <!-- Reminder: the line below the headline -->
    <message id="NotificationDetailMessage1">
        <source>Stand for %1 min</source>
        <extracomment>%1: whole minutes; NotificationDetailMessage2 follows on the same line</extracomment>
        <translation>Debout %1 min</translation>
    </message>
    <message id="NotificationDetailMessage2" numerus="yes">
        <source>to burn %1 calories.</source>
        <extracomment>%1: whole kilocalories</extracomment>
        <translation>
            <numerusform>pour brûler %1 calorie.</numerusform>
            <numerusform>pour brûler %1 calories.</numerusform>
        </translation>
    </message>
    <message id="NotificationSittingmemory">
        <source>Sit for %1 min, then stand again.</source>
        <extracomment>%1: whole minutes</extracomment>
        <translation>%1 min sur la chaise, puis de nouveau debout.</translation>
    </message>
    <!-- Setup -->
    <message id="Setup">
        <source>Settings</source>
        <translation>Réglages</translation>
    </message>
    <message id="TableHeightHeader">
        <source>Desk height now</source>
        <translation>Hauteur actuelle</translation>
    </message>
    <message id="MyWeightIs">
        <source>My weight</source>
        <translation>Mon poids</translation>
    </message>
    <message id="StandUpHeader">
        <source>Stand-ups</source>
        <translation>Pauses debout</translation>
    </message>
    <message id="EachHour">
        <source>per hour</source>
        <extracomment>Behind the field with the number of stand-ups, 1 to 6; the words must suit 1 too</extracomment>
        <translation>par heure</translation>
    </message>
    <message id="Time">
        <source>Time</source>
        <translation>Temps</translation>
    </message>
    <message id="SetupCaloriesHeader">
        <source>Calories to burn by standing each day</source>
        <extracomment>Heading over the goals in calories</extracomment>
        <translation>Calories à brûler debout par jour</translation>
    </message>
    <message id="SetupEnergyHeader">
        <source>Minutes to stand each hour</source>
        <extracomment>Heading over the goals in time</extracomment>
        <translation>Minutes debout par heure</translation>
    </message>
    <message id="SliderText">
        <source>That is %1 min on your feet each time you stand up.</source>
        <extracomment>%1: minutes in steps of a half</extracomment>
        <translation>Soit %1 min debout à chaque pause.</translation>
    </message>
    <message id="EntryRefused">
        <source>Enter a number from %1 to %2. The previous value has been restored.</source>
        <extracomment>%1 and %2: least and greatest value that the field takes</extracomment>
        <translation>Ce champ accepte un nombre de %1 à %2. La valeur précédente est revenue.</translation>
    </message>
    <message id="InfoLinkButton">
        <source>Watch the video</source>
        <translation>Voir la vidéo</translation>
    </message>
    <message id="InfoLinkText">
        <source>More about standing at work</source>
        <translation>En savoir plus sur le travail debout</translation>
    </message>
    <message id="AbsenceUnnoticed">
        <source></source>
        <translation>Cet environnement n’indique pas les absences : elles comptent comme assis ou debout.</translation>
    </message>
    <message id="MemoryInstruction">
        <source>Hold Up or Down.</source>
        <extracomment>In the small panel that sets the height of a memory position</extracomment>
        <translation>Maintenir « Monter » ou « Descendre ».</translation>
    </message>
    <message id="MemoryHeader">
        <source>Stored heights</source>
        <extracomment>Heading over the memory positions</extracomment>
        <translation>Hauteurs enregistrées</translation>
    </message>
    <message id="MemoryNotSet">
        <source></source>
        <extracomment>In place of a height, for a position that has none</extracomment>
        <translation>non définie</translation>
    </message>
    <message id="MemoryCardName">
        <source></source>
        <extracomment>%1: name of a memory position, %2: its height with unit</extracomment>
        <translation>%1, %2</translation>
    </message>
    <message id="StoreButton">
        <source>Store</source>
        <extracomment>Stores the desk’s height as a memory position</extracomment>
        <translation>Garder</translation>
    </message>
    <message id="Welcome">
        <source>First steps</source>
        <extracomment>Title beside the settings when the program is started for the first time</extracomment>
        <translation>Premiers pas</translation>
    </message>
    <message id="WelcomeText">
        <source>Set the heights for sitting and standing: choose one, hold Up or Down, then store.</source>
        <extracomment>What to do there, over a picture of the desk that moves with it</extracomment>
        <translation>Régler les hauteurs pour s’asseoir et se lever : en choisir une, maintenir « Monter » ou « Descendre », puis « Garder ».</translation>
    </message>
    <!-- History -->
    <message id="History">
        <source>History</source>
        <translation>Historique</translation>
    </message>
    <message id="CaloriesCheckbox" numerus="yes">
        <source>calories</source>
        <translation>
            <numerusform>calorie</numerusform>
            <numerusform>calories</numerusform>
        </translation>
    </message>
    <message id="Stands" numerus="yes">
        <source>stand-ups</source>
        <translation>
            <numerusform>pause debout</numerusform>
            <numerusform>pauses debout</numerusform>
        </translation>
    </message>
    <message id="GoalsMet" numerus="yes">
        <source>goals met</source>
        <translation>
            <numerusform>objectif atteint</numerusform>
            <numerusform>objectifs atteints</numerusform>
        </translation>
    </message>
    <message id="GoalsMetHint">
        <source>Counted in calories: days that burned at least %1.</source>
        <extracomment>Tooltip and spoken description of the goals met; %1: the goal’s number</extracomment>
        <translation>Comptés en calories : jours avec au moins %1.</translation>
    </message>
    <message id="Day">
        <source>Day</source>
        <translation>Jour</translation>
    </message>
    <message id="Week">
        <source>Week</source>
        <translation>Semaine</translation>
    </message>
    <message id="Month">
        <source>Month</source>
        <translation>Mois</translation>
    </message>
    <message id="Year">
        <source>Year</source>
        <translation>Année</translation>
    </message>
    <message id="YourDailyStats">
        <source>Your day so far</source>
        <translation>La journée en bref</translation>
    </message>
    <message id="YourWeeklyStats">
        <source>Your week so far</source>
        <translation>La semaine en bref</translation>
    </message>
    <message id="YourMonthlyStats">
        <source>Your month so far: %1</source>
        <extracomment>%1: name of the month</extracomment>
        <translation>Le mois en bref : %1</translation>
    </message>
    <message id="YourYearlyStats">
        <source>Your year so far: %1</source>
        <extracomment>%1: the year</extracomment>
        <translation>L’année en bref : %1</translation>
    </message>
    <message id="HistoryDates">
        <source>%1, until %2</source>
        <extracomment>%1: the first and the last date; %2: time of day</extracomment>
        <translation>%1, jusqu’à %2</translation>
    </message>
    <message id="ExportData">
        <source>Export to a file…</source>
        <translation>Exporter vers un fichier…</translation>
    </message>
    <message id="ExportFileName">
        <source>Zelvo StandUp %1.csv</source>
        <extracomment>%1: date as 31-12-2024</extracomment>
        <translation>Zelvo StandUp %1.csv</translation>
    </message>
    <!-- What a screen reader says -->
    <message id="AccessMoveUpHint">
        <source>Hold to raise the desk</source>
        <translation>Maintenir pour monter le bureau</translation>
    </message>
    <message id="AccessMoveDownHint">
        <source>Hold to lower the desk</source>
        <translation>Maintenir pour descendre le bureau</translation>
    </message>
    <message id="AccessMemoryHint">
        <source>Hold to move the desk to this position</source>
        <translation>Maintenir pour amener le bureau à cette position</translation>
    </message>
    <message id="KeepHolding">
        <source>Keep holding</source>
        <extracomment>Over a button that was let go too soon</extracomment>
        <translation>Maintenir appuyé</translation>
    </message>
    <message id="AccessSetMemoryHint">
        <source>Set the height of this position</source>
        <translation>Régler la hauteur de cette position</translation>
    </message>
    <message id="AccessGoalProgress">
        <source>Progress towards today’s goal</source>
        <translation>Progression vers l’objectif du jour</translation>
    </message>
    <message id="AccessSessionProgress">
        <source>Progress of the current session</source>
        <translation>Progression de la session en cours</translation>
    </message>
    <message id="AccessGoalSlider">
        <source>Goal</source>
        <translation>Objectif</translation>
    </message>
    <message id="AccessErrorLine">
        <source>Desk errors</source>
        <translation>Erreurs du bureau</translation>
    </message>
    <message id="AccessCloseWithoutSaving">
        <source>Close without saving</source>
        <translation>Fermer sans enregistrer</translation>
    </message>
</context>
</TS>
