<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name></name>
    <!-- The program -->
    <message id="AppName">
        <source>Zelvo StandUp</source>
        <translation>Zelvo StandUp</translation>
    </message>
    <message id="ContextMenuOpen">
        <source>Open Zelvo StandUp</source>
        <translation>Zelvo StandUp öffnen</translation>
    </message>
    <message id="ContextMenuHistory">
        <source>History</source>
        <translation>Verlauf</translation>
    </message>
    <message id="ContextMenuSettings">
        <source>Settings…</source>
        <translation>Einstellungen…</translation>
    </message>
    <message id="ContextMenuExit">
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message id="TrayTooltipSitting">
        <source>Sitting at %1</source>
        <extracomment>Tooltip and spoken state of the icon in the system tray; %1: height with its unit</extracomment>
        <translation>Sitzen bei %1</translation>
    </message>
    <message id="TrayTooltipStanding">
        <source>Standing at %1</source>
        <extracomment>Tooltip and spoken state of the icon in the system tray; %1: height with its unit</extracomment>
        <translation>Stehen bei %1</translation>
    </message>
    <message id="TrayTooltipPaused">
        <source>Paused at %1; nothing is being recorded</source>
        <extracomment>Tooltip and spoken state of the icon in the system tray; %1: height with its unit</extracomment>
        <translation>Pause bei %1, nichts wird aufgezeichnet</translation>
    </message>
    <message id="TrayTooltipError">
        <source>The desk reports an error (%1)</source>
        <extracomment>Tooltip and spoken state of the icon in the system tray; %1: height with its unit</extracomment>
        <translation>Der Tisch meldet einen Fehler (%1)</translation>
    </message>
    <message id="TrayTooltipChange" numerus="yes">
        <source>%1 minutes to the next change</source>
        <extracomment>Follows the posture and a comma in that tooltip; %1: whole minutes</extracomment>
        <translation>
            <numerusform>noch %1 Minute bis zum Wechsel</numerusform>
            <numerusform>noch %1 Minuten bis zum Wechsel</numerusform>
        </translation>
    </message>
    <message id="TrayTooltipDisconnected">
        <source>No desk connected</source>
        <extracomment>Tooltip and spoken state of the icon in the system tray</extracomment>
        <translation>Kein Tisch verbunden</translation>
    </message>
    <!-- Ending and errors -->
    <message id="Could not save changes while quitting. Quit anyway?">
        <source>Could not save changes while quitting. Quit anyway?</source>
        <translation>Beim Beenden konnten Änderungen nicht gespeichert werden. Trotzdem beenden?</translation>
    </message>
    <message id="Quitting now will lose any changes you have made since the last successful save">
        <source>Quitting now will lose any changes you have made since the last successful save</source>
        <translation>Alle Änderungen seit dem letzten erfolgreichen Speichern gehen verloren.</translation>
    </message>
    <message id="Quit anyway">
        <source>Quit anyway</source>
        <translation>Trotzdem beenden</translation>
    </message>
    <message id="Cancel">
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message id="Expected a folder to store application data, found a file (%1).">
        <source>Expected a folder to store application data, found a file (%1).</source>
        <extracomment>%1: path</extracomment>
        <translation>Für die Programmdaten ist ein Ordner vorgesehen, gefunden wurde eine Datei (%1).</translation>
    </message>
    <message id="Failed to initialize the store">
        <source>Failed to initialize the store</source>
        <translation>Der Datenspeicher konnte nicht vorbereitet werden</translation>
    </message>
    <message id="There was an error building up the data file.">
        <source>There was an error building up the data file.</source>
        <translation>Beim Anlegen der Datendatei ist ein Fehler aufgetreten.</translation>
    </message>
    <message id="StoreDamaged">
        <source>The record of your activities is damaged. It has been left as it is (%1).</source>
        <extracomment>%1: path</extracomment>
        <translation>Die Aufzeichnung der Aktivitäten ist beschädigt. Die Datei bleibt unverändert erhalten (%1).</translation>
    </message>
    <message id="StoreDiskFull">
        <source>There is no space left on the disk for the record of your activities (%1).</source>
        <extracomment>%1: path</extracomment>
        <translation>Für die Aufzeichnung der Aktivitäten ist kein Speicherplatz mehr frei (%1).</translation>
    </message>
    <message id="StoreInUse">
        <source>Another program is using the record of your activities (%1).</source>
        <extracomment>%1: path</extracomment>
        <translation>Ein anderes Programm benutzt gerade die Aufzeichnung der Aktivitäten (%1).</translation>
    </message>
    <message id="StoreNotWritable">
        <source>The record of your activities is write-protected (%1).</source>
        <extracomment>%1: path</extracomment>
        <translation>Die Aufzeichnung der Aktivitäten ist schreibgeschützt (%1).</translation>
    </message>
    <message id="StoreUnreadable">
        <source>The record of your activities cannot be read or written (%1).</source>
        <extracomment>%1: path</extracomment>
        <translation>Die Aufzeichnung der Aktivitäten kann nicht gelesen oder geschrieben werden (%1).</translation>
    </message>
    <message id="StoreNotAFile">
        <source>Found something other than a file where your activity record should be (%1).</source>
        <extracomment>%1: path</extracomment>
        <translation>Statt der Aufzeichnung der Aktivitäten wurde etwas gefunden, das keine Datei ist (%1).</translation>
    </message>
    <message id="StoreMissingBesideLog">
        <source>The record of your activities is missing or empty, but the log of its last changes is still there and has been left as it is (%1-wal).</source>
        <extracomment>%1: path</extracomment>
        <translation>Die Aufzeichnung der Aktivitäten fehlt oder ist leer. Das Protokoll der letzten Änderungen ist noch da und bleibt unverändert erhalten (%1-wal).</translation>
    </message>
    <message id="StoreTooNew">
        <source>The record of your activities was written by a newer version of this program (%1).</source>
        <extracomment>%1: path</extracomment>
        <translation>Die Aufzeichnung der Aktivitäten stammt von einer neueren Version dieses Programms (%1).</translation>
    </message>
    <message id="StoreForeign">
        <source>The file where your activity record should be holds something else (%1).</source>
        <extracomment>%1: path</extracomment>
        <translation>Die Datei an der Stelle der Aufzeichnung der Aktivitäten enthält etwas anderes (%1).</translation>
    </message>
    <message id="StoreGone">
        <source>The record of your activities was removed or replaced while the program was running (%1).</source>
        <extracomment>%1: path</extracomment>
        <translation>Die Aufzeichnung der Aktivitäten wurde entfernt oder ersetzt, während das Programm lief (%1).</translation>
    </message>
    <message id="StoreGoneReason">
        <source>The program continues with the file that is there now, or a new one. It contains the current session.</source>
        <translation>Das Programm fährt mit der Datei fort, die jetzt dort ist, oder mit einer neuen. Die laufende Phase ist darin enthalten.</translation>
    </message>
    <message id="StoreAdviceReplace">
        <source>Put a copy from your backup in its place, or move the file away to begin with an empty record.</source>
        <translation>Eine Sicherungskopie an diese Stelle legen, oder die Datei verschieben, um mit einer leeren Aufzeichnung zu beginnen.</translation>
    </message>
    <message id="StoreAdviceMakeRoom">
        <source>Free up some disk space.</source>
        <translation>Speicherplatz freigeben.</translation>
    </message>
    <message id="StoreAdviceCloseOther">
        <source>Close the other program.</source>
        <translation>Das andere Programm schließen.</translation>
    </message>
    <message id="StoreAdvicePermissions">
        <source>Check the permissions of the file and of its folder, and that the disk is healthy.</source>
        <translation>Die Zugriffsrechte der Datei und des Ordners prüfen, und ob der Datenträger in Ordnung ist.</translation>
    </message>
    <message id="StoreAdviceNewerProgram">
        <source>Install the newer version again.</source>
        <translation>Die neuere Version wieder installieren.</translation>
    </message>
    <message id="StoreNothingRecorded">
        <source>Nothing is recorded until then; the program keeps trying.</source>
        <extracomment>Stands behind one of the advices above, where the record cannot be opened</extracomment>
        <translation>Bis dahin wird nichts aufgezeichnet; das Programm versucht es von selbst wieder.</translation>
    </message>
    <message id="StoreKept">
        <source>Unsaved changes are kept while the program runs and saved as soon as possible.</source>
        <extracomment>Stands behind one of the advices above, where the record cannot be saved</extracomment>
        <translation>Was nicht gespeichert werden konnte, bleibt erhalten, solange das Programm läuft, und wird gespeichert, sobald es geht.</translation>
    </message>
    <message id="DataFolderError">
        <source>The folder for the program’s data cannot be used: %1</source>
        <extracomment>%1: path</extracomment>
        <translation>Der Ordner für die Programmdaten ist nicht benutzbar: %1</translation>
    </message>
    <message id="DataFolderAdvice">
        <source>Nothing is recorded until it can be used. Move whatever is in the way, or allow the program to write there; it keeps trying.</source>
        <translation>Solange das so ist, wird nichts aufgezeichnet. Was an der Stelle des Ordners liegt, verschieben oder das Schreiben dort erlauben; das Programm versucht es von selbst wieder.</translation>
    </message>
    <message id="SettingsDamaged">
        <source>Some lines of the settings file cannot be read (%1). All other settings are kept.</source>
        <extracomment>%1: path</extracomment>
        <translation>Einige Zeilen der Einstellungsdatei sind nicht lesbar (%1). Alle anderen Einstellungen bleiben erhalten.</translation>
    </message>
    <message id="SettingsDamagedReason">
        <source>%1&#10;&#10;The file as it was is kept here: %2</source>
        <extracomment>%1: the lines; %2: path of the copy</extracomment>
        <translation>%1&#10;&#10;Die Datei, wie sie war, liegt hier: %2</translation>
    </message>
    <!-- Errors that the desk reports -->
    <message id="Error &#10;">
        <source>Desk error
</source>
        <extracomment>Heading of the list of errors; ends with a line break</extracomment>
        <translation>Fehler am Tisch
</translation>
    </message>
    <message id="PositionLostError">
        <source>The desk has lost its position. Hold Down until it has reached the bottom.</source>
        <translation>Der Tisch hat seine Position verloren. „Runter“ gedrückt halten, bis er ganz unten ist.</translation>
    </message>
    <message id="OverloadUpError">
        <source>Overload while going up. Take some weight off the desk.</source>
        <translation>Überlast beim Hochfahren. Den Tisch entlasten.</translation>
    </message>
    <message id="OverloadDownError">
        <source>Overload while going down. Check that nothing is in the way.</source>
        <translation>Überlast beim Herunterfahren. Prüfen, ob etwas im Weg ist.</translation>
    </message>
    <!-- Units -->
    <message id="Centimeter">
        <source>cm</source>
        <translation>cm</translation>
    </message>
    <message id="Inches">
        <source>in</source>
        <translation>Zoll</translation>
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
        <translation>Min.</translation>
    </message>
    <message id="Mins" numerus="yes">
        <source>minutes</source>
        <translation>
            <numerusform>Minute</numerusform>
            <numerusform>Minuten</numerusform>
        </translation>
    </message>
    <message id="Minutes" numerus="yes">
        <source>minutes</source>
        <translation>
            <numerusform>Minute</numerusform>
            <numerusform>Minuten</numerusform>
        </translation>
    </message>
    <message id="Appearance">
        <source>Look</source>
        <extracomment>Beside the choice between a light and a dark look of the windows</extracomment>
        <translation>Darstellung</translation>
    </message>
    <message id="AppearanceLight">
        <source>Light</source>
        <translation>Hell</translation>
    </message>
    <message id="AppearanceDark">
        <source>Dark</source>
        <translation>Dunkel</translation>
    </message>
    <message id="AppearanceDesktop">
        <source>As the desktop</source>
        <translation>Wie der Desktop</translation>
    </message>
    <message id="Calories" numerus="yes">
        <source>Calories</source>
        <translation>
            <numerusform>Kalorie</numerusform>
            <numerusform>Kalorien</numerusform>
        </translation>
    </message>
    <!-- Buttons -->
    <message id="UpButton">
        <source>Up</source>
        <translation>Hoch</translation>
    </message>
    <message id="DownButton">
        <source>Down</source>
        <translation>Runter</translation>
    </message>
    <message id="Memory1">
        <source>Sit</source>
        <translation>Sitzen</translation>
    </message>
    <message id="Memory2">
        <source>Stand</source>
        <translation>Stehen</translation>
    </message>
    <message id="Memory3">
        <source>Position 3</source>
        <translation>Position 3</translation>
    </message>
    <message id="HistoryButton">
        <source>History</source>
        <translation>Verlauf</translation>
    </message>
    <message id="SettingsButton">
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message id="SnoozeButton">
        <source>Snooze</source>
        <translation>Später</translation>
    </message>
    <message id="SkipButton">
        <source>Skip</source>
        <translation>Auslassen</translation>
    </message>
    <message id="DoneButton">
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
    <message id="CloseButton">
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <!-- Main window -->
    <message id="TableHeightLabel">
        <source>Desk height</source>
        <translation>Tischhöhe</translation>
    </message>
    <message id="OfTodaysGoal">
        <source>of today’s goal</source>
        <translation>des Tagesziels</translation>
    </message>
    <message id="Today">
        <source>Today</source>
        <extracomment>In the main window, under the circle with what was done today</extracomment>
        <translation>Heute</translation>
    </message>
    <message id="CurrentSession">
        <source>Current session</source>
        <translation>Aktuelle Phase</translation>
    </message>
    <message id="NoDesk">
        <source>No desk found</source>
        <extracomment>In the main window, above ConnectTable</extracomment>
        <translation>Kein Tisch gefunden</translation>
    </message>
    <message id="ConnectTable">
        <source>Please connect your desk</source>
        <translation>Bitte den Tisch anschließen</translation>
    </message>
    <message id="AdapterForbidden">
        <source>You have no permission to use the adapter. Run these commands in a terminal to allow it:</source>
        <extracomment>In the main window, above two commands</extracomment>
        <translation>Der Adapter ist da, darf aber nicht geöffnet werden. Diese Befehle in einem Terminal erlauben es:</translation>
    </message>
    <message id="CopyCommands">
        <source>Copy the commands</source>
        <extracomment>Below the two commands of AdapterForbidden</extracomment>
        <translation>Befehle kopieren</translation>
    </message>
    <message id="CommandsCopied">
        <source>Copied</source>
        <extracomment>Takes the place of CopyCommands</extracomment>
        <translation>Kopiert</translation>
    </message>
    <!-- Reminder: the headline when the user stands and is asked to sit -->
    <message id="StandingMessage1">
        <source>Time to take a seat</source>
        <translation>Zeit, sich zu setzen</translation>
    </message>
    <message id="StandingMessage2">
        <source>Well stood! Have a seat.</source>
        <translation>Gut gestanden! Jetzt ist Sitzen dran.</translation>
    </message>
    <message id="StandingMessage3">
        <source>Your legs have earned a rest</source>
        <translation>Eine Pause für die Beine</translation>
    </message>
    <message id="StandingMessage4">
        <source>How about sitting for a while?</source>
        <translation>Wie wäre es mit einer Weile im Sitzen?</translation>
    </message>
    <message id="StandingMessage5">
        <source>A good moment to sit down</source>
        <translation>Ein guter Moment zum Hinsetzen</translation>
    </message>
    <message id="StandingMessage6">
        <source>Your chair is ready when you are</source>
        <translation>Der Stuhl steht bereit</translation>
    </message>
    <message id="StandingMessage7">
        <source>Let the desk come down with you</source>
        <translation>Mit dem Tisch nach unten</translation>
    </message>
    <message id="StandingMessage8">
        <source>Ease back into your chair</source>
        <translation>Zurücklehnen und weitermachen</translation>
    </message>
    <message id="StandingMessage9">
        <source>Nicely done. Now take a rest.</source>
        <translation>Schön gestanden. Nun etwas Erholung.</translation>
    </message>
    <message id="StandingMessage10">
        <source>A change of view: sit for a bit</source>
        <translation>Neue Perspektive: eine Weile sitzen</translation>
    </message>
    <!-- Reminder: the headline when the user sits and is asked to stand -->
    <message id="SittingMessage1">
        <source>Time to stand up</source>
        <translation>Zeit aufzustehen</translation>
    </message>
    <message id="SittingMessage2">
        <source>Ready for a stretch?</source>
        <translation>Lust, sich zu strecken?</translation>
    </message>
    <message id="SittingMessage3">
        <source>A good moment to get on your feet</source>
        <translation>Ein guter Moment zum Aufstehen</translation>
    </message>
    <message id="SittingMessage4">
        <source>Your back will enjoy this: stand up</source>
        <translation>Der Rücken freut sich: aufstehen</translation>
    </message>
    <message id="SittingMessage5">
        <source>Give your legs something to do</source>
        <translation>Etwas Bewegung für die Beine</translation>
    </message>
    <message id="SittingMessage6">
        <source>How about standing for a while?</source>
        <translation>Wie wäre es mit einer Weile im Stehen?</translation>
    </message>
    <message id="SittingMessage7">
        <source>Rise with your desk</source>
        <translation>Mit dem Tisch nach oben</translation>
    </message>
    <message id="SittingMessage8">
        <source>A new angle on things: stand up</source>
        <translation>Neuer Blickwinkel: im Stehen weiter</translation>
    </message>
    <message id="SittingMessage9">
        <source>A little stand, a clearer head</source>
        <translation>Kurz stehen, klarer denken</translation>
    </message>
    <message id="SittingMessage10">
        <source>Up you get, in your own time</source>
        <translation>Auf die Füße, ganz ohne Eile</translation>
    </message>
    <!-- Reminder: the line below the headline -->
    <message id="NotificationDetailMessage1">
        <source>Stand for %1 min</source>
        <extracomment>%1: whole minutes; NotificationDetailMessage2 follows on the same line</extracomment>
        <translation>%1 Min. Stehen</translation>
    </message>
    <message id="NotificationDetailMessage2" numerus="yes">
        <source>to burn %1 calories.</source>
        <extracomment>%1: whole kilocalories</extracomment>
        <translation>
            <numerusform>verbrauchen %1 Kalorie.</numerusform>
            <numerusform>verbrauchen %1 Kalorien.</numerusform>
        </translation>
    </message>
    <message id="NotificationSittingmemory">
        <source>Sit for %1 min, then stand again.</source>
        <extracomment>%1: whole minutes</extracomment>
        <translation>%1 Min. sitzen, dann wieder stehen.</translation>
    </message>
    <!-- Setup -->
    <message id="Setup">
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message id="TableHeightHeader">
        <source>Desk height now</source>
        <translation>Tischhöhe jetzt</translation>
    </message>
    <message id="MyWeightIs">
        <source>My weight</source>
        <translation>Mein Gewicht</translation>
    </message>
    <message id="StandUpHeader">
        <source>Stand-ups</source>
        <translation>Stehphasen</translation>
    </message>
    <message id="EachHour">
        <source>per hour</source>
        <extracomment>Behind the field with the number of stand-ups, 1 to 6; the words must suit 1 too</extracomment>
        <translation>pro Stunde</translation>
    </message>
    <message id="Time">
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message id="SetupCaloriesHeader">
        <source>Calories to burn by standing each day</source>
        <extracomment>Heading over the goals in calories</extracomment>
        <translation>Kalorien pro Tag im Stehen</translation>
    </message>
    <message id="SetupEnergyHeader">
        <source>Minutes to stand each hour</source>
        <extracomment>Heading over the goals in time</extracomment>
        <translation>Minuten im Stehen pro Stunde</translation>
    </message>
    <message id="SliderText">
        <source>That is %1 min on your feet each time you stand up.</source>
        <extracomment>%1: minutes in steps of a half</extracomment>
        <translation>Das sind %1 Min. in jeder Stehphase.</translation>
    </message>
    <message id="EntryRefused">
        <source>Enter a number from %1 to %2. The previous value has been restored.</source>
        <extracomment>%1 and %2: least and greatest value that the field takes</extracomment>
        <translation>Hier passt eine Zahl von %1 bis %2. Der vorige Wert ist wieder da.</translation>
    </message>
    <message id="InfoLinkButton">
        <source>Watch the video</source>
        <translation>Video ansehen</translation>
    </message>
    <message id="InfoLinkText">
        <source>More about standing at work</source>
        <translation>Mehr über das Arbeiten im Stehen</translation>
    </message>
    <message id="AbsenceUnnoticed">
        <source></source>
        <translation>Diese Desktop-Umgebung meldet keine Abwesenheiten: Diese zählen als Sitzen oder Stehen.</translation>
    </message>
    <message id="MemoryInstruction">
        <source>Hold Up or Down.</source>
        <extracomment>In the small panel that sets the height of a memory position</extracomment>
        <translation>„Hoch“ oder „Runter“ gedrückt halten.</translation>
    </message>
    <message id="MemoryHeader">
        <source>Stored heights</source>
        <extracomment>Heading over the memory positions</extracomment>
        <translation>Gespeicherte Höhen</translation>
    </message>
    <message id="MemoryNotSet">
        <source></source>
        <extracomment>In place of a height, for a position that has none</extracomment>
        <translation>nicht gesetzt</translation>
    </message>
    <message id="MemoryCardName">
        <source></source>
        <extracomment>%1: name of a memory position, %2: its height with unit</extracomment>
        <translation>%1, %2</translation>
    </message>
    <message id="StoreButton">
        <source>Store</source>
        <extracomment>Stores the desk’s height as a memory position</extracomment>
        <translation>Speichern</translation>
    </message>
    <message id="Welcome">
        <source>First steps</source>
        <extracomment>Title beside the settings when the program is started for the first time</extracomment>
        <translation>Erste Schritte</translation>
    </message>
    <message id="WelcomeText">
        <source>Set the heights for sitting and standing: choose one, hold Up or Down, then store.</source>
        <extracomment>What to do there, over a picture of the desk that moves with it</extracomment>
        <translation>Höhen zum Sitzen und Stehen festlegen: eine wählen, „Hoch“ oder „Runter“ gedrückt halten, speichern.</translation>
    </message>
    <!-- History -->
    <message id="History">
        <source>History</source>
        <translation>Verlauf</translation>
    </message>
    <message id="CaloriesCheckbox" numerus="yes">
        <source>calories</source>
        <translation>
            <numerusform>Kalorie</numerusform>
            <numerusform>Kalorien</numerusform>
        </translation>
    </message>
    <message id="Stands" numerus="yes">
        <source>stand-ups</source>
        <translation>
            <numerusform>Stehphase</numerusform>
            <numerusform>Stehphasen</numerusform>
        </translation>
    </message>
    <message id="GoalsMet" numerus="yes">
        <source>goals met</source>
        <translation>
            <numerusform>Ziel erreicht</numerusform>
            <numerusform>Ziele erreicht</numerusform>
        </translation>
    </message>
    <message id="GoalsMetHint">
        <source>Counted in calories: days that burned at least %1.</source>
        <extracomment>Tooltip and spoken description of the goals met; %1: the goal’s number</extracomment>
        <translation>In Kalorien gezählt: Tage mit mindestens %1.</translation>
    </message>
    <message id="Day">
        <source>Day</source>
        <translation>Tag</translation>
    </message>
    <message id="Week">
        <source>Week</source>
        <translation>Woche</translation>
    </message>
    <message id="Month">
        <source>Month</source>
        <translation>Monat</translation>
    </message>
    <message id="Year">
        <source>Year</source>
        <translation>Jahr</translation>
    </message>
    <message id="YourDailyStats">
        <source>Your day so far</source>
        <translation>Der Tag bisher</translation>
    </message>
    <message id="YourWeeklyStats">
        <source>Your week so far</source>
        <translation>Die Woche bisher</translation>
    </message>
    <message id="YourMonthlyStats">
        <source>Your month so far: %1</source>
        <extracomment>%1: name of the month</extracomment>
        <translation>Der Monat bisher: %1</translation>
    </message>
    <message id="YourYearlyStats">
        <source>Your year so far: %1</source>
        <extracomment>%1: the year</extracomment>
        <translation>Das Jahr bisher: %1</translation>
    </message>
    <message id="HistoryDates">
        <source>%1, until %2</source>
        <extracomment>%1: the first and the last date; %2: time of day</extracomment>
        <translation>%1, bis %2 Uhr</translation>
    </message>
    <message id="ExportData">
        <source>Export to a file…</source>
        <translation>In eine Datei exportieren…</translation>
    </message>
    <message id="ExportFileName">
        <source>Zelvo StandUp %1.csv</source>
        <extracomment>%1: date as 31-12-2024</extracomment>
        <translation>Zelvo StandUp %1.csv</translation>
    </message>
    <!-- What a screen reader says -->
    <message id="AccessMoveUpHint">
        <source>Hold to raise the desk</source>
        <translation>Gedrückt halten, um den Tisch anzuheben</translation>
    </message>
    <message id="AccessMoveDownHint">
        <source>Hold to lower the desk</source>
        <translation>Gedrückt halten, um den Tisch abzusenken</translation>
    </message>
    <message id="AccessMemoryHint">
        <source>Hold to move the desk to this position</source>
        <translation>Gedrückt halten, um den Tisch in diese Position zu fahren</translation>
    </message>
    <message id="KeepHolding">
        <source>Keep holding</source>
        <extracomment>Over a button that was let go too soon</extracomment>
        <translation>Gedrückt halten</translation>
    </message>
    <message id="AccessSetMemoryHint">
        <source>Set the height of this position</source>
        <translation>Höhe dieser Position festlegen</translation>
    </message>
    <message id="AccessGoalProgress">
        <source>Progress towards today’s goal</source>
        <translation>Fortschritt zum Tagesziel</translation>
    </message>
    <message id="AccessSessionProgress">
        <source>Progress of the current session</source>
        <translation>Fortschritt der aktuellen Phase</translation>
    </message>
    <message id="AccessGoalSlider">
        <source>Goal</source>
        <translation>Ziel</translation>
    </message>
    <message id="AccessErrorLine">
        <source>Desk errors</source>
        <translation>Fehler am Tisch</translation>
    </message>
    <message id="AccessCloseWithoutSaving">
        <source>Close without saving</source>
        <translation>Schließen ohne zu speichern</translation>
    </message>
</context>
</TS>
