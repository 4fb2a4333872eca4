<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name></name>
    <!-- The program -->
    <message id="AppName">
        <source>Zelvo StandUp</source>
        <translation>Zelvo StandUp</translation>
    </message>
    <message id="ContextMenuOpen">
        <source>Open Zelvo StandUp</source>
        <translation>Abrir Zelvo StandUp</translation>
    </message>
    <message id="ContextMenuHistory">
        <source>History</source>
        <translation>Historial</translation>
    </message>
    <message id="ContextMenuSettings">
        <source>Settings…</source>
        <translation>Ajustes…</translation>
    </message>
    <message id="ContextMenuExit">
        <source>Quit</source>
        <translation>Salir</translation>
    </message>
    <message id="TrayTooltipSitting">
        <source>Sitting at %1</source>
        <extracomment>Tooltip and spoken state of the icon in the system tray; %1: height with its unit</extracomment>
        <translation>Postura sentada, %1</translation>
    </message>
    <message id="TrayTooltipStanding">
        <source>Standing at %1</source>
        <extracomment>Tooltip and spoken state of the icon in the system tray; %1: height with its unit</extracomment>
        <translation>Postura de pie, %1</translation>
    </message>
    <message id="TrayTooltipPaused">
        <source>Paused at %1; nothing is being recorded</source>
        <extracomment>Tooltip and spoken state of the icon in the system tray; %1: height with its unit</extracomment>
        <translation>En pausa a %1, no se registra nada</translation>
    </message>
    <message id="TrayTooltipError">
        <source>The desk reports an error (%1)</source>
        <extracomment>Tooltip and spoken state of the icon in the system tray; %1: height with its unit</extracomment>
        <translation>La mesa informa de un error (%1)</translation>
    </message>
    <message id="TrayTooltipChange" numerus="yes">
        <source>%1 minutes to the next change</source>
        <extracomment>Follows the posture and a comma in that tooltip; %1: whole minutes</extracomment>
        <translation>
            <numerusform>%1 minuto hasta el cambio</numerusform>
            <numerusform>%1 minutos hasta el cambio</numerusform>
        </translation>
    </message>
    <message id="TrayTooltipDisconnected">
        <source>No desk connected</source>
        <extracomment>Tooltip and spoken state of the icon in the system tray</extracomment>
        <translation>Ninguna mesa conectada</translation>
    </message>
    <!-- Ending and errors -->
    <message id="Could not save changes while quitting. Quit anyway?">
        <source>Could not save changes while quitting. Quit anyway?</source>
        <translation>No se han podido guardar los cambios al salir. ¿Salir de todos modos?</translation>
    </message>
    <message id="Quitting now will lose any changes you have made since the last successful save">
        <source>Quitting now will lose any changes you have made since the last successful save</source>
        <translation>Se perderán todos los cambios realizados desde la última vez que se guardaron.</translation>
    </message>
    <message id="Quit anyway">
        <source>Quit anyway</source>
        <translation>Salir de todos modos</translation>
    </message>
    <message id="Cancel">
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message id="Expected a folder to store application data, found a file (%1).">
        <source>Expected a folder to store application data, found a file (%1).</source>
        <extracomment>%1: path</extracomment>
        <translation>Se esperaba una carpeta para los datos del programa, pero hay un archivo (%1).</translation>
    </message>
    <message id="Failed to initialize the store">
        <source>Failed to initialize the store</source>
        <translation>No se ha podido preparar el almacén de datos</translation>
    </message>
    <message id="There was an error building up the data file.">
        <source>There was an error building up the data file.</source>
        <translation>Se ha producido un error al crear el archivo de datos.</translation>
    </message>
    <message id="StoreDamaged">
        <source>The record of your activities is damaged. It has been left as it is (%1).</source>
        <extracomment>%1: path</extracomment>
        <translation>El registro de actividades está dañado. Se ha dejado tal como está (%1).</translation>
    </message>
    <message id="StoreDiskFull">
        <source>There is no space left on the disk for the record of your activities (%1).</source>
        <extracomment>%1: path</extracomment>
        <translation>No queda espacio en el disco para el registro de actividades (%1).</translation>
    </message>
    <message id="StoreInUse">
        <source>Another program is using the record of your activities (%1).</source>
        <extracomment>%1: path</extracomment>
        <translation>Otro programa está utilizando el registro de actividades (%1).</translation>
    </message>
    <message id="StoreNotWritable">
        <source>The record of your activities is write-protected (%1).</source>
        <extracomment>%1: path</extracomment>
        <translation>El registro de actividades está protegido contra escritura (%1).</translation>
    </message>
    <message id="StoreUnreadable">
        <source>The record of your activities cannot be read or written (%1).</source>
        <extracomment>%1: path</extracomment>
        <translation>No se puede leer ni escribir el registro de actividades (%1).</translation>
    </message>
    <message id="StoreNotAFile">
        <source>Found something other than a file where your activity record should be (%1).</source>
        <extracomment>%1: path</extracomment>
        <translation>En lugar del registro de actividades hay algo que no es un archivo (%1).</translation>
    </message>
    <message id="StoreMissingBesideLog">
        <source>The record of your activities is missing or empty, but the log of its last changes is still there and has been left as it is (%1-wal).</source>
        <extracomment>%1: path</extracomment>
        <translation>Falta el registro de actividades o está vacío, pero el diario de los últimos cambios sigue ahí y se ha dejado tal como está (%1-wal).</translation>
    </message>
    <message id="StoreTooNew">
        <source>The record of your activities was written by a newer version of this program (%1).</source>
        <extracomment>%1: path</extracomment>
        <translation>El registro de actividades procede de una versión más reciente del programa (%1).</translation>
    </message>
    <message id="StoreForeign">
        <source>The file where your activity record should be holds something else (%1).</source>
        <extracomment>%1: path</extracomment>
        <translation>El archivo en el lugar del registro de actividades contiene otra cosa (%1).</translation>
    </message>
    <message id="StoreGone">
        <source>The record of your activities was removed or replaced while the program was running (%1).</source>
        <extracomment>%1: path</extracomment>
        <translation>El registro de actividades se ha eliminado o sustituido mientras el programa funcionaba (%1).</translation>
    </message>
    <message id="StoreGoneReason">
        <source>The program continues with the file that is there now, or a new one. It contains the current session.</source>
        <translation>El programa continúa con el archivo que hay ahora, o con uno nuevo, que contiene la sesión en curso.</translation>
    </message>
    <message id="StoreAdviceReplace">
        <source>Put a copy from your backup in its place, or move the file away to begin with an empty record.</source>
        <translation>Poner en este lugar una copia de seguridad, o mover el archivo para empezar con un registro vacío.</translation>
    </message>
    <message id="StoreAdviceMakeRoom">
        <source>Free up some disk space.</source>
        <translation>Liberar espacio en el disco.</translation>
    </message>
    <message id="StoreAdviceCloseOther">
        <source>Close the other program.</source>
        <translation>Cerrar el otro programa.</translation>
    </message>
    <message id="StoreAdvicePermissions">
        <source>Check the permissions of the file and of its folder, and that the disk is healthy.</source>
        <translation>Comprobar los permisos del archivo y de la carpeta, y si el disco está en orden.</translation>
    </message>
    <message id="StoreAdviceNewerProgram">
        <source>Install the newer version again.</source>
        <translation>Volver a instalar la versión más reciente.</translation>
    </message>
    <message id="StoreNothingRecorded">
        <source>Nothing is recorded until then; the program keeps trying.</source>
        <extracomment>Stands behind one of the advices above, where the record cannot be opened</extracomment>
        <translation>Hasta entonces no se registra nada; el programa lo vuelve a intentar por sí solo.</translation>
    </message>
    <message id="StoreKept">
        <source>Unsaved changes are kept while the program runs and saved as soon as possible.</source>
        <extracomment>Stands behind one of the advices above, where the record cannot be saved</extracomment>
        <translation>Lo que no se ha podido guardar se conserva mientras el programa funcione, y se guardará en cuanto sea posible.</translation>
    </message>
    <message id="DataFolderError">
        <source>The folder for the program’s data cannot be used: %1</source>
        <extracomment>%1: path</extracomment>
        <translation>No se puede utilizar la carpeta de datos del programa: %1</translation>
    </message>
    <message id="DataFolderAdvice">
        <source>Nothing is recorded until it can be used. Move whatever is in the way, or allow the program to write there; it keeps trying.</source>
        <translation>Hasta entonces no se registra nada. Mover lo que ocupa el lugar de la carpeta o permitir la escritura; el programa lo vuelve a intentar por sí solo.</translation>
    </message>
    <message id="SettingsDamaged">
        <source>Some lines of the settings file cannot be read (%1). All other settings are kept.</source>
        <extracomment>%1: path</extracomment>
        <translation>Algunas líneas del archivo de ajustes no se pueden leer (%1). Los demás ajustes se conservan.</translation>
    </message>
    <message id="SettingsDamagedReason">
        <source>%1&#10;&#10;The file as it was is kept here: %2</source>
        <extracomment>%1: the lines; %2: path of the copy</extracomment>
        <translation>%1&#10;&#10;El archivo tal como estaba se conserva aquí: %2</translation>
    </message>
    <!-- Errors that the desk reports -->
    <message id="Error &#10;">
        <source>Desk error
</source>
        <extracomment>Heading of the list of errors; ends with a line break</extracomment>
        <translation>Error de la mesa
</translation>
    </message>
    <message id="PositionLostError">
        <source>The desk has lost its position. Hold Down until it has reached the bottom.</source>
        <translation>La mesa ha perdido la posición. Mantener pulsado «Bajar» hasta que llegue abajo.</translation>
    </message>
    <message id="OverloadUpError">
        <source>Overload while going up. Take some weight off the desk.</source>
        <translation>Sobrecarga al subir. Retirar peso de la mesa.</translation>
    </message>
    <message id="OverloadDownError">
        <source>Overload while going down. Check that nothing is in the way.</source>
        <translation>Sobrecarga al bajar. Comprobar que nada estorba.</translation>
    </message>
    <!-- Units -->
    <message id="Centimeter">
        <source>cm</source>
        <translation>cm</translation>
    </message>
    <message id="Inches">
        <source>in</source>
        <translation>in</translation>
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
            <numerusform>minuto</numerusform>
            <numerusform>minutos</numerusform>
        </translation>
    </message>
    <message id="Minutes" numerus="yes">
        <source>minutes</source>
        <translation>
            <numerusform>minuto</numerusform>
            <numerusform>minutos</numerusform>
        </translation>
    </message>
    <message id="Appearance">
        <source>Look</source>
        <extracomment>Beside the choice between a light and a dark look of the windows</extracomment>
        <translation>Apariencia</translation>
    </message>
    <message id="AppearanceLight">
        <source>Light</source>
        <translation>Clara</translation>
    </message>
    <message id="AppearanceDark">
        <source>Dark</source>
        <translation>Oscura</translation>
    </message>
    <message id="AppearanceDesktop">
        <source>As the desktop</source>
        <translation>Según el sistema</translation>
    </message>
    <message id="Calories" numerus="yes">
        <source>Calories</source>
        <translation>
            <numerusform>Caloría</numerusform>
            <numerusform>Calorías</numerusform>
        </translation>
    </message>
    <!-- Buttons -->
    <message id="UpButton">
        <source>Up</source>
        <translation>Subir</translation>
    </message>
    <message id="DownButton">
        <source>Down</source>
        <translation>Bajar</translation>
    </message>
    <message id="Memory1">
        <source>Sit</source>
        <translation>Sentarse</translation>
    </message>
    <message id="Memory2">
        <source>Stand</source>
        <translation>Levantarse</translation>
    </message>
    <message id="Memory3">
        <source>Position 3</source>
        <translation>Posición 3</translation>
    </message>
    <message id="HistoryButton">
        <source>History</source>
        <translation>Historial</translation>
    </message>
    <message id="SettingsButton">
        <source>Settings</source>
        <translation>Ajustes</translation>
    </message>
    <message id="SnoozeButton">
        <source>Snooze</source>
        <translation>Más tarde</translation>
    </message>
    <message id="SkipButton">
        <source>Skip</source>
        <translation>Omitir</translation>
    </message>
    <message id="DoneButton">
        <source>Done</source>
        <translation>Listo</translation>
    </message>
    <message id="CloseButton">
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <!-- Main window -->
    <message id="TableHeightLabel">
        <source>Desk height</source>
        <translation>Altura de la mesa</translation>
    </message>
    <message id="OfTodaysGoal">
        <source>of today’s goal</source>
        <translation>del objetivo de hoy</translation>
    </message>
    <message id="Today">
        <source>Today</source>
        <extracomment>In the main window, under the circle with what was done today</extracomment>
        <translation>Hoy</translation>
    </message>
    <message id="CurrentSession">
        <source>Current session</source>
        <translation>Sesión actual</translation>
    </message>
    <message id="NoDesk">
        <source>No desk found</source>
        <extracomment>In the main window, above ConnectTable</extracomment>
        <translation>No hay ninguna mesa</translation>
    </message>
    <message id="ConnectTable">
        <source>Please connect your desk</source>
        <translation>Conectar la mesa</translation>
    </message>
    <message id="AdapterForbidden">
        <source>You have no permission to use the adapter. Run these commands in a terminal to allow it:</source>
        <extracomment>In the main window, above two commands</extracomment>
        <translation>El adaptador está conectado, pero no se permite abrirlo. Estas órdenes en una terminal lo permiten:</translation>
    </message>
    <message id="CopyCommands">
        <source>Copy the commands</source>
        <extracomment>Below the two commands of AdapterForbidden</extracomment>
        <translation>Copiar las órdenes</translation>
    </message>
    <message id="CommandsCopied">
        <source>Copied</source>
        <extracomment>Takes the place of CopyCommands</extracomment>
        <translation>Copiado</translation>
    </message>
    <!-- Reminder: the headline when the user stands and is asked to sit -->
    <message id="StandingMessage1">
        <source>Time to take a seat</source>
        <translation>Hora de sentarse</translation>
    </message>
    <message id="StandingMessage2">
        <source>Well stood! Have a seat.</source>
        <translation>¡Bien hecho! La silla espera.</translation>
    </message>
    <message id="StandingMessage3">
        <source>Your legs have earned a rest</source>
        <translation>Un descanso para las piernas</translation>
    </message>
    <message id="StandingMessage4">
        <source>How about sitting for a while?</source>
        <translation>¿Y si nos sentamos un rato?</translation>
    </message>
    <message id="StandingMessage5">
        <source>A good moment to sit down</source>
        <translation>Un buen momento para sentarse</translation>
    </message>
    <message id="StandingMessage6">
        <source>Your chair is ready when you are</source>
        <translation>La silla ya está lista</translation>
    </message>
    <message id="StandingMessage7">
        <source>Let the desk come down with you</source>
        <translation>Abajo, junto con la mesa</translation>
    </message>
    <message id="StandingMessage8">
        <source>Ease back into your chair</source>
        <translation>De vuelta a la silla, con calma</translation>
    </message>
    <message id="StandingMessage9">
        <source>Nicely done. Now take a rest.</source>
        <translation>Buen trabajo. Ahora, a reposar.</translation>
    </message>
    <message id="StandingMessage10">
        <source>A change of view: sit for a bit</source>
        <translation>Cambio de vista: a la silla un rato</translation>
    </message>
    <!-- Reminder: the headline when the user sits and is asked to stand -->
    <message id="SittingMessage1">
        <source>Time to stand up</source>
        <translation>Hora de ponerse de pie</translation>
    </message>
    <message id="SittingMessage2">
        <source>Ready for a stretch?</source>
        <translation>¿Apetece estirarse?</translation>
    </message>
    <message id="SittingMessage3">
        <source>A good moment to get on your feet</source>
        <translation>Un buen momento para levantarse</translation>
    </message>
    <message id="SittingMessage4">
        <source>Your back will enjoy this: stand up</source>
        <translation>La espalda lo agradece: de pie</translation>
    </message>
    <message id="SittingMessage5">
        <source>Give your legs something to do</source>
        <translation>Algo de movimiento para las piernas</translation>
    </message>
    <message id="SittingMessage6">
        <source>How about standing for a while?</source>
        <translation>¿Qué tal un rato de pie?</translation>
    </message>
    <message id="SittingMessage7">
        <source>Rise with your desk</source>
        <translation>Arriba, junto con la mesa</translation>
    </message>
    <message id="SittingMessage8">
        <source>A new angle on things: stand up</source>
        <translation>Otro punto de vista: de pie</translation>
    </message>
    <message id="SittingMessage9">
        <source>A little stand, a clearer head</source>
        <translation>De pie se piensa más claro</translation>
    </message>
    <message id="SittingMessage10">
        <source>Up you get, in your own time</source>
        <translation>Arriba, sin prisa</translation>
    </message>
    <!-- Reminder: the line below the headline -->
    <message id="NotificationDetailMessage1">
        <source>Stand for %1 min</source>
        <extracomment>%1: whole minutes; NotificationDetailMessage2 follows on the same line</extracomment>
        <translation>%1 min de pie</translation>
    </message>
    <message id="NotificationDetailMessage2" numerus="yes">
        <source>to burn %1 calories.</source>
        <extracomment>%1: whole kilocalories</extracomment>
        <translation>
            <numerusform>para quemar %1 caloría.</numerusform>
            <numerusform>para quemar %1 calorías.</numerusform>
        </translation>
    </message>
    <message id="NotificationSittingmemory">
        <source>Sit for %1 min, then stand again.</source>
        <extracomment>%1: whole minutes</extracomment>
        <translation>%1 min de silla y, después, otra vez de pie.</translation>
    </message>
    <!-- Setup -->
    <message id="Setup">
        <source>Settings</source>
        <translation>Ajustes</translation>
    </message>
    <message id="TableHeightHeader">
        <source>Desk height now</source>
        <translation>Altura actual</translation>
    </message>
    <message id="MyWeightIs">
        <source>My weight</source>
        <translation>Mi peso</translation>
    </message>
    <message id="StandUpHeader">
        <source>Stand-ups</source>
        <translation>Pausas de pie</translation>
    </message>
    <message id="EachHour">
        <source>per hour</source>
        <extracomment>Behind the field with the number of stand-ups, 1 to 6; the words must suit 1 too</extracomment>
        <translation>por hora</translation>
    </message>
    <message id="Time">
        <source>Time</source>
        <translation>Tiempo</translation>
    </message>
    <message id="SetupCaloriesHeader">
        <source>Calories to burn by standing each day</source>
        <extracomment>Heading over the goals in calories</extracomment>
        <translation>Calorías que quemar de pie al día</translation>
    </message>
    <message id="SetupEnergyHeader">
        <source>Minutes to stand each hour</source>
        <extracomment>Heading over the goals in time</extracomment>
        <translation>Minutos de pie por hora</translation>
    </message>
    <message id="SliderText">
        <source>That is %1 min on your feet each time you stand up.</source>
        <extracomment>%1: minutes in steps of a half</extracomment>
        <translation>Es decir, %1 min de pie cada vez.</translation>
    </message>
    <message id="EntryRefused">
        <source>Enter a number from %1 to %2. The previous value has been restored.</source>
        <extracomment>%1 and %2: least and greatest value that the field takes</extracomment>
        <translation>Aquí cabe un número de %1 a %2. Vuelve el valor anterior.</translation>
    </message>
    <message id="InfoLinkButton">
        <source>Watch the video</source>
        <translation>Ver el vídeo</translation>
    </message>
    <message id="InfoLinkText">
        <source>More about standing at work</source>
        <translation>Más sobre el trabajo de pie</translation>
    </message>
    <message id="AbsenceUnnoticed">
        <source></source>
        <translation>Este entorno de escritorio no indica las ausencias: cuentan como tiempo sentado o de pie.</translation>
    </message>
    <message id="MemoryInstruction">
        <source>Hold Up or Down.</source>
        <extracomment>In the small panel that sets the height of a memory position</extracomment>
        <translation>Mantener pulsado «Subir» o «Bajar».</translation>
    </message>
    <message id="MemoryHeader">
        <source>Stored heights</source>
        <extracomment>Heading over the memory positions</extracomment>
        <translation>Alturas guardadas</translation>
    </message>
    <message id="MemoryNotSet">
        <source></source>
        <extracomment>In place of a height, for a position that has none</extracomment>
        <translation>sin fijar</translation>
    </message>
    <message id="MemoryCardName">
        <source></source>
        <extracomment>%1: name of a memory position, %2: its height with unit</extracomment>
        <translation>%1, %2</translation>
    </message>
    <message id="StoreButton">
        <source>Store</source>
        <extracomment>Stores the desk’s height as a memory position</extracomment>
        <translation>Guardar</translation>
    </message>
    <message id="Welcome">
        <source>First steps</source>
        <extracomment>Title beside the settings when the program is started for the first time</extracomment>
        <translation>Primeros pasos</translation>
    </message>
    <message id="WelcomeText">
        <source>Set the heights for sitting and standing: choose one, hold Up or Down, then store.</source>
        <extracomment>What to do there, over a picture of the desk that moves with it</extracomment>
        <translation>Fijar las alturas para sentarse y levantarse: elegir una, mantener pulsado «Subir» o «Bajar» y guardar.</translation>
    </message>
    <!-- History -->
    <message id="History">
        <source>History</source>
        <translation>Historial</translation>
    </message>
    <message id="CaloriesCheckbox" numerus="yes">
        <source>calories</source>
        <translation>
            <numerusform>caloría</numerusform>
            <numerusform>calorías</numerusform>
        </translation>
    </message>
    <message id="Stands" numerus="yes">
        <source>stand-ups</source>
        <translation>
            <numerusform>pausa de pie</numerusform>
            <numerusform>pausas de pie</numerusform>
        </translation>
    </message>
    <message id="GoalsMet" numerus="yes">
        <source>goals met</source>
        <translation>
            <numerusform>objetivo cumplido</numerusform>
            <numerusform>objetivos cumplidos</numerusform>
        </translation>
    </message>
    <message id="GoalsMetHint">
        <source>Counted in calories: days that burned at least %1.</source>
        <extracomment>Tooltip and spoken description of the goals met; %1: the goal’s number</extracomment>
        <translation>Contados en calorías: días con al menos %1.</translation>
    </message>
    <message id="Day">
        <source>Day</source>
        <translation>Día</translation>
    </message>
    <message id="Week">
        <source>Week</source>
        <translation>Semana</translation>
    </message>
    <message id="Month">
        <source>Month</source>
        <translation>Mes</translation>
    </message>
    <message id="Year">
        <source>Year</source>
        <translation>Año</translation>
    </message>
    <message id="YourDailyStats">
        <source>Your day so far</source>
        <translation>El día hasta ahora</translation>
    </message>
    <message id="YourWeeklyStats">
        <source>Your week so far</source>
        <translation>La semana hasta ahora</translation>
    </message>
    <message id="YourMonthlyStats">
        <source>Your month so far: %1</source>
        <extracomment>%1: name of the month</extracomment>
        <translation>El mes hasta ahora: %1</translation>
    </message>
    <message id="YourYearlyStats">
        <source>Your year so far: %1</source>
        <extracomment>%1: the year</extracomment>
        <translation>El año hasta ahora: %1</translation>
    </message>
    <message id="HistoryDates">
        <source>%1, until %2</source>
        <extracomment>%1: the first and the last date; %2: time of day</extracomment>
        <translation>%1, hasta %2</translation>
    </message>
    <message id="ExportData">
        <source>Export to a file…</source>
        <translation>Exportar a un archivo…</translation>
    </message>
    <message id="ExportFileName">
        <source>Zelvo StandUp %1.csv</source>
        <extracomment>%1: date as 31-12-2024</extracomment>
        <translation>Zelvo StandUp %1.csv</translation>
    </message>
    <!-- What a screen reader says -->
    <message id="AccessMoveUpHint">
        <source>Hold to raise the desk</source>
        <translation>Mantener pulsado para subir la mesa</translation>
    </message>
    <message id="AccessMoveDownHint">
        <source>Hold to lower the desk</source>
        <translation>Mantener pulsado para bajar la mesa</translation>
    </message>
    <message id="AccessMemoryHint">
        <source>Hold to move the desk to this position</source>
        <translation>Mantener pulsado para llevar la mesa a esta posición</translation>
    </message>
    <message id="KeepHolding">
        <source>Keep holding</source>
        <extracomment>Over a button that was let go too soon</extracomment>
        <translation>Mantener pulsado</translation>
    </message>
    <message id="AccessSetMemoryHint">
        <source>Set the height of this position</source>
        <translation>Fijar la altura de esta posición</translation>
    </message>
    <message id="AccessGoalProgress">
        <source>Progress towards today’s goal</source>
        <translation>Progreso hacia el objetivo de hoy</translation>
    </message>
    <message id="AccessSessionProgress">
        <source>Progress of the current session</source>
        <translation>Progreso de la sesión actual</translation>
    </message>
    <message id="AccessGoalSlider">
        <source>Goal</source>
        <translation>Objetivo</translation>
    </message>
    <message id="AccessErrorLine">
        <source>Desk errors</source>
        <translation>Errores de la mesa</translation>
    </message>
    <message id="AccessCloseWithoutSaving">
        <source>Close without saving</source>
        <translation>Cerrar sin guardar</translation>
    </message>
</context>
</TS>
