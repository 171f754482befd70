<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Actions</name>
    <message>
        <source>New Wallpaper</source>
        <translation>Neues Hintergrundbild</translation>
    </message>
    <message>
        <source>Previous Wallpaper</source>
        <translation>Vorheriges Hintergrundbild</translation>
    </message>
    <message>
        <source>Still or Animated</source>
        <extracomment>makes a still wallpaper animated, and an animated one still</extracomment>
        <translation>Standbild oder animiert</translation>
    </message>
    <message>
        <source>Open Editor</source>
        <translation>Editor öffnen</translation>
    </message>
    <message>
        <source>Quit Tessel Broth</source>
        <translation>Tessel Broth beenden</translation>
    </message>
</context>
<context>
    <name>ApplyArea</name>
    <message>
        <source>Wallpaper</source>
        <extracomment>what is chosen between still and animated</extracomment>
        <translation>Hintergrundbild</translation>
    </message>
    <message>
        <source>Still</source>
        <extracomment>&quot;Still&quot;: a wallpaper that does not move</extracomment>
        <translation>Standbild</translation>
    </message>
    <message>
        <source>Animated</source>
        <translation>Animiert</translation>
    </message>
</context>
<context>
    <name>Bowls</name>
    <message>
        <source>Tomato Bisque</source>
        <extracomment>names of wallpapers to begin with, each that of a soup</extracomment>
        <translation>Tomatensuppe</translation>
    </message>
    <message>
        <source>Miso Tide</source>
        <translation>Miso-Flut</translation>
    </message>
    <message>
        <source>Borscht</source>
        <translation>Borschtsch</translation>
    </message>
    <message>
        <source>Green Curry</source>
        <translation>Grünes Curry</translation>
    </message>
    <message>
        <source>Split Pea</source>
        <translation>Erbsensuppe</translation>
    </message>
    <message>
        <source>Clam Chowder</source>
        <translation>Muschelsuppe</translation>
    </message>
</context>
<context>
    <name>BowlsPage</name>
    <message>
        <source>Wallpaper</source>
        <translation>Hintergrundbild</translation>
    </message>
</context>
<context>
    <name>ColorTab</name>
    <message>
        <source>Invert</source>
        <extracomment>a verb: turns the palette&apos;s order round</extracomment>
        <translation>Umkehren</translation>
    </message>
</context>
<context>
    <name>Commands</name>
    <message>
        <source>Allow Tessel Broth in Login Items</source>
        <extracomment>login items: the programs that start at login</extracomment>
        <translation>Tessel Broth im Autostart erlauben</translation>
    </message>
    <message>
        <source>Open Login Items</source>
        <translation>Autostart öffnen</translation>
    </message>
    <message>
        <source>Not Now</source>
        <translation>Nicht jetzt</translation>
    </message>
    <message>
        <source>Could not open the login items</source>
        <translation>Der Autostart konnte nicht geöffnet werden</translation>
    </message>
    <message>
        <source>Save PNG</source>
        <translation>PNG speichern</translation>
    </message>
    <message>
        <source>PNG pictures (*.png)</source>
        <translation>PNG-Bilder (*.png)</translation>
    </message>
    <message>
        <source>Choose a Photo</source>
        <translation>Foto auswählen</translation>
    </message>
    <message>
        <source>Pictures (%1)</source>
        <translation>Bilder (%1)</translation>
    </message>
    <message>
        <source>Could not turn on Launch at Login</source>
        <translation>Der Start bei der Anmeldung konnte nicht eingeschaltet werden</translation>
    </message>
    <message>
        <source>Could not turn off Launch at Login</source>
        <translation>Der Start bei der Anmeldung konnte nicht ausgeschaltet werden</translation>
    </message>
    <message>
        <source>Save as preset</source>
        <translation>Als Vorlage speichern</translation>
    </message>
    <message>
        <source>Updates come with your system</source>
        <translation>Aktualisierungen kommen mit dem System</translation>
    </message>
    <message>
        <source>The software centre or package manager of your system keeps Tessel Broth up to date. Look for updates there.</source>
        <translation>Die Softwareverwaltung oder die Paketverwaltung des Systems hält Tessel Broth aktuell. Aktualisierungen sind dort zu finden.</translation>
    </message>
    <message>
        <source>Could not open the web page</source>
        <translation>Die Webseite konnte nicht geöffnet werden</translation>
    </message>
    <message>
        <source>No browser has taken it. You can copy the address:
%1</source>
        <translation>Kein Browser hat sie angenommen. Die Adresse lässt sich kopieren:
%1</translation>
    </message>
</context>
<context>
    <name>CrashNotesText</name>
    <message>
        <source>The pattern %1 with the dither %2 has ended Tessel Broth twice. It is tried again with another graphics driver, or another version of Tessel Broth.</source>
        <translation>Das Muster %1 mit dem Raster %2 hat Tessel Broth zweimal beendet. Mit einem anderen Grafiktreiber oder einer anderen Version von Tessel Broth wird es wieder versucht.</translation>
    </message>
</context>
<context>
    <name>Dialogs</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>DitherTab</name>
    <message>
        <source>Dithers</source>
        <translation>Raster</translation>
    </message>
</context>
<context>
    <name>EdgeRoot</name>
    <message>
        <source>Presets</source>
        <translation>Vorlagen</translation>
    </message>
</context>
<context>
    <name>Editor</name>
    <message>
        <source>Tessel Broth</source>
        <translation>Tessel Broth</translation>
    </message>
    <message>
        <source>What to edit</source>
        <translation>Was bearbeitet wird</translation>
    </message>
    <message>
        <source>Export PNG</source>
        <translation>PNG exportieren</translation>
    </message>
</context>
<context>
    <name>ExportProgress</name>
    <message>
        <source>%1 %</source>
        <translation>%1&#xa0;%</translation>
    </message>
    <message>
        <source>Stop saving</source>
        <translation>Speichern abbrechen</translation>
    </message>
</context>
<context>
    <name>FileErrorText</name>
    <message>
        <source>permission denied</source>
        <extracomment>reasons, at the end of a sentence</extracomment>
        <translation>Die Berechtigung fehlt</translation>
    </message>
    <message>
        <source>the file system is read-only</source>
        <translation>Das Dateisystem ist schreibgeschützt</translation>
    </message>
    <message>
        <source>there is no such file</source>
        <translation>Diese Datei gibt es nicht</translation>
    </message>
    <message>
        <source>there is no folder %1</source>
        <translation>Den Ordner %1 gibt es nicht</translation>
    </message>
    <message>
        <source>%1 is not a folder</source>
        <translation>%1 ist kein Ordner</translation>
    </message>
    <message>
        <source>it is a folder</source>
        <translation>Es ist ein Ordner</translation>
    </message>
    <message>
        <source>the disk is full</source>
        <translation>Der Datenträger ist voll</translation>
    </message>
    <message>
        <source>the disk quota is used up</source>
        <translation>Das Speicherkontingent ist aufgebraucht</translation>
    </message>
    <message>
        <source>the file would be larger than is allowed</source>
        <translation>Die Datei würde größer als erlaubt</translation>
    </message>
    <message>
        <source>the name is too long</source>
        <translation>Der Name ist zu lang</translation>
    </message>
    <message>
        <source>the disk reports a fault</source>
        <translation>Der Datenträger meldet einen Fehler</translation>
    </message>
</context>
<context>
    <name>FileWriterText</name>
    <message>
        <source>cannot be written</source>
        <extracomment>between the name of a file and the reason</extracomment>
        <translation>kann nicht geschrieben werden</translation>
    </message>
</context>
<context>
    <name>Footer</name>
    <message>
        <source>Back</source>
        <extracomment>to the step before</extracomment>
        <translation>Zurück</translation>
    </message>
</context>
<context>
    <name>Handle</name>
    <message>
        <source>Shows quick actions</source>
        <extracomment>what a click on the handle does</extracomment>
        <translation>Zeigt die Schnellaktionen</translation>
    </message>
    <message>
        <source>Opens the wallpaper editor</source>
        <translation>Öffnet den Editor für Hintergrundbilder</translation>
    </message>
    <message>
        <source>Open editor</source>
        <translation>Editor öffnen</translation>
    </message>
</context>
<context>
    <name>HandleDemo</name>
    <message>
        <source>The handle opening into its quick actions: new wallpaper, previous wallpaper, still or animated, open editor</source>
        <translation>Der Griff öffnet sich zu seinen Schnellaktionen: neues Hintergrundbild, vorheriges Hintergrundbild, Standbild oder animiert, Editor öffnen</translation>
    </message>
    <message>
        <source>New wallpaper</source>
        <translation>Neues Hintergrundbild</translation>
    </message>
</context>
<context>
    <name>Header</name>
    <message>
        <source>Tessel Broth</source>
        <translation>Tessel Broth</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Shuffle draft</source>
        <extracomment>makes another look at random, which is not put on the desktop</extracomment>
        <translation>Entwurf würfeln</translation>
    </message>
    <message>
        <source>Export PNG</source>
        <translation>PNG exportieren</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>Json</name>
    <message>
        <source>line %1, column %2</source>
        <translation>Zeile %1, Spalte %2</translation>
    </message>
    <message>
        <source>the JSON is nested more than %1 deep; looks and lists of them need no more than 4</source>
        <translation>das JSON ist mehr als %1-fach verschachtelt; Looks und Listen davon brauchen höchstens 4 Ebenen</translation>
    </message>
    <message>
        <source>there is more text after the end of the JSON value</source>
        <translation>nach dem Ende des JSON-Werts folgt weiterer Text</translation>
    </message>
    <message>
        <source>the text ends before the JSON value is complete</source>
        <translation>der Text endet, bevor der JSON-Wert vollständig ist</translation>
    </message>
    <message>
        <source>the text is not UTF-8 here</source>
        <translation>hier ist der Text kein UTF-8</translation>
    </message>
    <message>
        <source>%1 cannot stand here</source>
        <translation>%1 darf hier nicht stehen</translation>
    </message>
    <message>
        <source>a NUL character cannot stand in JSON</source>
        <translation>ein NUL-Zeichen darf in JSON nicht stehen</translation>
    </message>
    <message>
        <source>the text is not JSON</source>
        <translation>der Text ist kein JSON</translation>
    </message>
    <message>
        <source>an array</source>
        <translation>ein Array</translation>
    </message>
    <message>
        <source>an object</source>
        <translation>ein Objekt</translation>
    </message>
    <message>
        <source>a number from -3.4028235e+38 to 3.4028235e+38 (a 32-bit float) is expected</source>
        <translation>erwartet wird eine Zahl von -3.4028235e+38 bis 3.4028235e+38 (Gleitkommazahl mit 32 Bit)</translation>
    </message>
    <message>
        <source>true or false is expected</source>
        <translation>erwartet wird true oder false</translation>
    </message>
    <message>
        <source>a colour is a whole number from 0 to 4294967295</source>
        <translation>eine Farbe ist eine ganze Zahl von 0 bis 4294967295</translation>
    </message>
    <message>
        <source>a whole number from 0 (Flow) to 35 (Neuro) is expected</source>
        <translation>erwartet wird eine ganze Zahl von 0 (Flow) bis 35 (Neuro)</translation>
    </message>
    <message>
        <source>a whole number from 0 to 9223372036854775807 is expected</source>
        <translation>erwartet wird eine ganze Zahl von 0 bis 9223372036854775807</translation>
    </message>
    <message>
        <source>a whole number from 0 (Smooth) to 9 (Benday) is expected</source>
        <translation>erwartet wird eine ganze Zahl von 0 (Smooth) bis 9 (Benday)</translation>
    </message>
    <message>
        <source>the path of a photo as a string, without NUL characters, is expected</source>
        <translation>erwartet wird der Pfad eines Fotos als Zeichenkette ohne NUL-Zeichen</translation>
    </message>
    <message>
        <source>an array of colours, whole numbers from 0 to 4294967295, is expected</source>
        <translation>erwartet wird ein Array von Farben, ganzen Zahlen von 0 bis 4294967295</translation>
    </message>
    <message>
        <source>a UUID such as &quot;6F9619FF-8B86-D011-B42D-00C04FC964FF&quot; is expected</source>
        <translation>erwartet wird eine UUID wie &quot;6F9619FF-8B86-D011-B42D-00C04FC964FF&quot;</translation>
    </message>
    <message>
        <source>a string is expected</source>
        <translation>erwartet wird eine Zeichenkette</translation>
    </message>
    <message>
        <source>a look (a JSON object) is expected</source>
        <translation>erwartet wird ein Look (ein JSON-Objekt)</translation>
    </message>
    <message>
        <source>%1 holds %2; %3</source>
        <extracomment>%1 is a place such as entry 3: &quot;pattern&quot;, %2 a value, %3 what is expected</extracomment>
        <translation>%1 enthält %2; %3</translation>
    </message>
    <message>
        <source>entry %1: </source>
        <extracomment>of a list; followed by what is wrong with it</extracomment>
        <translation>Eintrag %1: </translation>
    </message>
    <message>
        <source>text in UTF-8 is expected</source>
        <translation>erwartet wird Text in UTF-8</translation>
    </message>
    <message>
        <source>%1 is missing; %2</source>
        <translation>%1 fehlt; %2</translation>
    </message>
    <message>
        <source>a number</source>
        <translation>eine Zahl</translation>
    </message>
    <message>
        <source>a Boolean</source>
        <translation>ein Wahrheitswert</translation>
    </message>
    <message>
        <source>a string</source>
        <translation>eine Zeichenkette</translation>
    </message>
    <message>
        <source>%1, this is %2</source>
        <extracomment>such as: a look is a JSON object, this is an array</extracomment>
        <translation>%1, dies ist %2</translation>
    </message>
    <message>
        <source>a look is a JSON object</source>
        <translation>ein Look ist ein JSON-Objekt</translation>
    </message>
    <message>
        <source>a list of looks is a JSON array</source>
        <translation>eine Liste von Looks ist ein JSON-Array</translation>
    </message>
    <message>
        <source>a list of presets is a JSON array</source>
        <translation>eine Liste von Vorlagen ist ein JSON-Array</translation>
    </message>
    <message>
        <source>a preset is a JSON object</source>
        <translation>eine Vorlage ist ein JSON-Objekt</translation>
    </message>
    <message>
        <source>a list of colour lists is a JSON array</source>
        <translation>eine Liste von Farblisten ist ein JSON-Array</translation>
    </message>
    <message>
        <source>a colour list is a JSON array</source>
        <translation>eine Farbliste ist ein JSON-Array</translation>
    </message>
</context>
<context>
    <name>LadlePage</name>
    <message>
        <source>Keep it on the</source>
        <extracomment>the beginning of a sentence that &quot;Left&quot; or &quot;Right&quot; on a button ends</extracomment>
        <translation>Sie gehört nach</translation>
    </message>
</context>
<context>
    <name>LoginItemText</name>
    <message>
        <source>The folder %1 could not be made. Check that nothing else has its name and that you may write there.</source>
        <translation>Der Ordner %1 konnte nicht angelegt werden. Trägt etwas anderes diesen Namen, oder fehlt dort die Schreibberechtigung?</translation>
    </message>
    <message>
        <source>The file %1 could not be written: %2.</source>
        <translation>Die Datei %1 konnte nicht geschrieben werden: %2.</translation>
    </message>
    <message>
        <source>Tessel Broth was switched off in the desktop&apos;s settings of what is started at login. Please switch it on there.</source>
        <translation>Tessel Broth wurde in den Autostart-Einstellungen des Desktops ausgeschaltet. Bitte dort wieder einschalten.</translation>
    </message>
    <message>
        <source>The program %1 cannot be started at login, because it cannot be run.</source>
        <translation>Das Programm %1 kann nicht bei der Anmeldung gestartet werden, weil es sich nicht ausführen lässt.</translation>
    </message>
    <message>
        <source>The file %1 could not be removed: %2.</source>
        <translation>Die Datei %1 konnte nicht entfernt werden: %2.</translation>
    </message>
    <message>
        <source>Nothing was found that shows them. Each is a file in the folder
%1</source>
        <translation>Kein Programm kann ihn anzeigen. Jeder Eintrag ist eine Datei im Ordner
%1</translation>
    </message>
    <message>
        <source>Your system needs your OK before Tessel Broth can open at login. You can allow it in the system settings, among the programs that start at login.</source>
        <translation>Das System muss zustimmen, bevor Tessel Broth bei der Anmeldung starten kann. Erlauben lässt es sich in den Systemeinstellungen, unter den Programmen, die bei der Anmeldung starten.</translation>
    </message>
</context>
<context>
    <name>LookReader</name>
    <message>
        <source>The text is too long to be one.</source>
        <translation>Dafür ist der Text zu lang.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be written: %2</source>
        <translation>„%1“ kann nicht geschrieben werden: %2</translation>
    </message>
</context>
<context>
    <name>Main</name>
    <message>
        <source>Tessel Broth cannot draw here</source>
        <translation>Tessel Broth kann hier nicht zeichnen</translation>
    </message>
    <message>
        <source>Tessel Broth cannot start</source>
        <translation>Tessel Broth kann nicht starten</translation>
    </message>
</context>
<context>
    <name>OnboardingRoot</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>PaletteActions</name>
    <message>
        <source>Edit</source>
        <translation>Bearbeiten</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
</context>
<context>
    <name>PaletteEdit</name>
    <message>
        <source>Hue</source>
        <translation>Farbton</translation>
    </message>
    <message>
        <source>H</source>
        <comment>hue</comment>
        <translation>F</translation>
    </message>
    <message>
        <source>Saturation</source>
        <translation>Sättigung</translation>
    </message>
    <message>
        <source>S</source>
        <comment>saturation</comment>
        <translation>S</translation>
    </message>
    <message>
        <source>Brightness</source>
        <translation>Helligkeit</translation>
    </message>
    <message>
        <source>B</source>
        <comment>brightness</comment>
        <translation>H</translation>
    </message>
    <message>
        <source>Hex</source>
        <extracomment>six hexadecimal digits of a colour</extracomment>
        <translation>Hex</translation>
    </message>
    <message>
        <source>Remove the last colour</source>
        <translation>Letzte Farbe entfernen</translation>
    </message>
    <message>
        <source>Add a colour</source>
        <translation>Farbe hinzufügen</translation>
    </message>
    <message>
        <source>Reading…</source>
        <extracomment>a photo is being read; takes the colours of a palette from a photo</extracomment>
        <translation>Wird gelesen&#xa0;…</translation>
    </message>
    <message>
        <source>From photo</source>
        <translation>Aus Foto</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
</context>
<context>
    <name>PaletteList</name>
    <message>
        <source>Palettes</source>
        <translation>Paletten</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Bearbeiten</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
</context>
<context>
    <name>PaletteRow</name>
    <message>
        <source>New palette</source>
        <translation>Neue Palette</translation>
    </message>
</context>
<context>
    <name>PaletteSwatch</name>
    <message>
        <source>E edits, Delete deletes</source>
        <extracomment>keys; E stays E</extracomment>
        <translation>E bearbeitet, Entf löscht</translation>
    </message>
</context>
<context>
    <name>PhotoText</name>
    <message>
        <source>there is no such file</source>
        <extracomment>why a photo cannot be used; inside a sentence</extracomment>
        <translation>Diese Datei gibt es nicht</translation>
    </message>
    <message>
        <source>it is a folder, not a picture</source>
        <translation>Es ist ein Ordner, kein Bild</translation>
    </message>
    <message>
        <source>it is not an ordinary file</source>
        <translation>Es ist keine gewöhnliche Datei</translation>
    </message>
    <message>
        <source>it may not be read</source>
        <translation>Die Leseberechtigung fehlt</translation>
    </message>
    <message>
        <source>it does not fit the graphics memory</source>
        <translation>Es passt nicht in den Grafikspeicher</translation>
    </message>
</context>
<context>
    <name>Photos</name>
    <message>
        <source>&quot;%1&quot; cannot be used: %2. Choose a picture file, such as a JPEG or PNG.</source>
        <translation>„%1“ kann nicht verwendet werden: %2. Geeignet sind Bilddateien wie JPEG oder PNG.</translation>
    </message>
    <message>
        <source>The folder &quot;%1&quot; cannot be made. It must be possible to write there.</source>
        <translation>Der Ordner „%1“ kann nicht angelegt werden. Dort muss geschrieben werden können.</translation>
    </message>
    <message>
        <source>The folder &quot;%1&quot; cannot be written to.</source>
        <translation>In den Ordner „%1“ kann nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be read: %2</source>
        <translation>„%1“ kann nicht gelesen werden: %2</translation>
    </message>
</context>
<context>
    <name>PngFileText</name>
    <message>
        <source>cannot be read</source>
        <extracomment>between the name of a file and the reason</extracomment>
        <translation>kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>is not a PNG file</source>
        <extracomment>behind the name of a file</extracomment>
        <translation>ist keine PNG-Datei</translation>
    </message>
    <message>
        <source>is a damaged PNG file: it does not begin with its header</source>
        <translation>ist eine beschädigte PNG-Datei: Der Dateikopf fehlt</translation>
    </message>
    <message>
        <source>carries a look text that is too long to be one</source>
        <translation>enthält einen Text, der für einen Look zu lang ist</translation>
    </message>
    <message>
        <source>is a PNG file that has been cut off</source>
        <translation>ist eine abgeschnittene PNG-Datei</translation>
    </message>
    <message>
        <source>is a damaged PNG file: a chunk has an impossible size</source>
        <translation>ist eine beschädigte PNG-Datei: Ein Abschnitt hat eine unmögliche Größe</translation>
    </message>
    <message>
        <source>is a damaged PNG file: the check sum of a chunk is wrong</source>
        <translation>ist eine beschädigte PNG-Datei: Die Prüfsumme eines Abschnitts stimmt nicht</translation>
    </message>
    <message>
        <source>is a damaged PNG file: its look is not laid out as text</source>
        <translation>ist eine beschädigte PNG-Datei: Der Look darin ist kein richtiger Text</translation>
    </message>
    <message>
        <source>is a damaged PNG file: its look cannot be decompressed</source>
        <translation>ist eine beschädigte PNG-Datei: Der Look darin lässt sich nicht entpacken</translation>
    </message>
</context>
<context>
    <name>PresetTile</name>
    <message>
        <source>Animated</source>
        <extracomment>of a wallpaper</extracomment>
        <translation>Animiert</translation>
    </message>
    <message>
        <source>Still</source>
        <translation>Standbild</translation>
    </message>
</context>
<context>
    <name>PresetsTab</name>
    <message>
        <source>Save as preset</source>
        <translation>Als Vorlage speichern</translation>
    </message>
    <message>
        <source>Your presets</source>
        <translation>Eigene Vorlagen</translation>
    </message>
    <message>
        <source>Preset</source>
        <translation>Vorlage</translation>
    </message>
    <message>
        <source>Rename...</source>
        <translation>Umbenennen&#xa0;…</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
</context>
<context>
    <name>Pressable</name>
    <message>
        <source>Not available now</source>
        <translation>Zurzeit nicht verfügbar</translation>
    </message>
</context>
<context>
    <name>Preview</name>
    <message>
        <source>Held still</source>
        <translation>Angehalten</translation>
    </message>
    <message>
        <source>Space holds it still</source>
        <translation>Die Leertaste hält sie an</translation>
    </message>
    <message>
        <source>Choose a photo</source>
        <extracomment>%1 is the name of the look, such as &quot;Flow Ember&quot;</extracomment>
        <translation>Foto auswählen</translation>
    </message>
    <message>
        <source>Preview: %1</source>
        <translation>Vorschau: %1</translation>
    </message>
    <message>
        <source>Let it move</source>
        <extracomment>of an animation that was stopped, and that plays</extracomment>
        <translation>Weiterlaufen lassen</translation>
    </message>
    <message>
        <source>Hold it still</source>
        <translation>Anhalten</translation>
    </message>
</context>
<context>
    <name>ProgramText</name>
    <message>
        <source>the driver gives no reason</source>
        <translation>Der Treiber nennt keinen Grund</translation>
    </message>
    <message>
        <source>The pattern %1 cannot be drawn: %2</source>
        <extracomment>The last marker is what the graphics driver says.</extracomment>
        <translation>Das Muster %1 kann nicht gezeichnet werden: %2</translation>
    </message>
    <message>
        <source>The pattern %1 with the dither %2 cannot be drawn: %3</source>
        <translation>Das Muster %1 mit dem Raster %2 kann nicht gezeichnet werden: %3</translation>
    </message>
    <message>
        <source>The dither %1 cannot be drawn: %2</source>
        <translation>Das Raster %1 kann nicht gezeichnet werden: %2</translation>
    </message>
    <message>
        <source>The palette cannot be drawn: %1</source>
        <translation>Die Palette kann nicht gezeichnet werden: %1</translation>
    </message>
</context>
<context>
    <name>QtGlContextText</name>
    <message>
        <source>This display offers no OpenGL; version 3.3 is needed, and Mesa&apos;s software renderer is enough (on Debian: libgl1-mesa-dri)</source>
        <translation>Diese Anzeige bietet kein OpenGL; nötig ist Version 3.3, und Mesas Software-Renderer genügt (unter Debian: libgl1-mesa-dri)</translation>
    </message>
    <message>
        <source>OpenGL is there but cannot be drawn with</source>
        <translation>OpenGL ist vorhanden, lässt sich aber nicht zum Zeichnen verwenden</translation>
    </message>
    <message>
        <source>%1 is there, but version 3.3 is needed</source>
        <translation>%1 ist vorhanden, nötig ist aber Version 3.3</translation>
    </message>
</context>
<context>
    <name>Questions</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Save as preset</source>
        <translation>Als Vorlage speichern</translation>
    </message>
    <message>
        <source>A name for this shape, colours, dither and sliders. It stays in Presets, one click from the menu bar.</source>
        <translation>Ein Name für Form, Farben, Raster und Regler. Die Vorlage bleibt unter „Vorlagen“, einen Klick entfernt im Menü der Leiste.</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Rename preset</source>
        <translation>Vorlage umbenennen</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
</context>
<context>
    <name>QuickButton</name>
    <message>
        <source>Not available now</source>
        <translation>Zurzeit nicht verfügbar</translation>
    </message>
</context>
<context>
    <name>SettingsFile</name>
    <message>
        <source>&quot;%1&quot; is not an ordinary file</source>
        <translation>„%1“ ist keine gewöhnliche Datei</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be read: %2</source>
        <translation>„%1“ kann nicht gelesen werden: %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is larger than %2 MiB, which settings are not</source>
        <translation>„%1“ ist größer als %2 MiB, zu groß für Einstellungen</translation>
    </message>
    <message>
        <source>&quot;%1&quot; holds settings that cannot be read, and a copy cannot be kept: %2</source>
        <translation>„%1“ enthält unlesbare Einstellungen, und eine Kopie lässt sich nicht aufbewahren: %2</translation>
    </message>
    <message>
        <source>the folder &quot;%1&quot; cannot be made; a place that may be written to is expected</source>
        <translation>Der Ordner „%1“ kann nicht angelegt werden; nötig ist ein Ort, an dem geschrieben werden darf</translation>
    </message>
    <message>
        <source>another program is writing &quot;%1&quot;</source>
        <translation>Ein anderes Programm schreibt gerade „%1“</translation>
    </message>
    <message>
        <source>the folder &quot;%1&quot; cannot be written to (%2); permission and free space are expected</source>
        <translation>In den Ordner „%1“ kann nicht geschrieben werden (%2); nötig sind Berechtigung und freier Platz</translation>
    </message>
</context>
<context>
    <name>ShapeTab</name>
    <message>
        <source>Shapes</source>
        <translation>Formen</translation>
    </message>
    <message>
        <source>Reading…</source>
        <extracomment>a photo is being read</extracomment>
        <translation>Wird gelesen&#xa0;…</translation>
    </message>
    <message>
        <source>Change photo</source>
        <translation>Foto wechseln</translation>
    </message>
</context>
<context>
    <name>Sheet</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>Sliders</name>
    <message>
        <source>Scale</source>
        <extracomment>how large a pattern is</extracomment>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Warp</source>
        <extracomment>how much a pattern is bent</extracomment>
        <translation>Verzerrung</translation>
    </message>
    <message>
        <source>Speed</source>
        <extracomment>of an animation</extracomment>
        <translation>Tempo</translation>
    </message>
    <message>
        <source>Seed</source>
        <extracomment>the number that a pattern&apos;s chance begins with</extracomment>
        <translation>Startwert</translation>
    </message>
    <message>
        <source>Shift</source>
        <extracomment>by how much the colours are moved along the palette</extracomment>
        <translation>Verschiebung</translation>
    </message>
    <message>
        <source>Contrast</source>
        <translation>Kontrast</translation>
    </message>
    <message>
        <source>Grain</source>
        <extracomment>as that of a film</extracomment>
        <translation>Körnung</translation>
    </message>
    <message>
        <source>Vignette</source>
        <extracomment>the darkening towards the corners</extracomment>
        <translation>Vignette</translation>
    </message>
    <message>
        <source>Pixel</source>
        <extracomment>the size of the pixels that a wallpaper is made of</extracomment>
        <translation>Pixel</translation>
    </message>
    <message>
        <source>Levels</source>
        <extracomment>how many tones there are</extracomment>
        <translation>Stufen</translation>
    </message>
</context>
<context>
    <name>StatusMenu</name>
    <message>
        <source>Left</source>
        <extracomment>where the handle is</extracomment>
        <translation>Links</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Rechts</translation>
    </message>
    <message>
        <source>Every Hour</source>
        <extracomment>how often there is a fresh bowl</extracomment>
        <translation>Stündlich</translation>
    </message>
    <message>
        <source>Every Day</source>
        <translation>Täglich</translation>
    </message>
    <message>
        <source>Never</source>
        <translation>Nie</translation>
    </message>
    <message>
        <source>Hidden</source>
        <extracomment>there is no handle</extracomment>
        <translation>Ausgeblendet</translation>
    </message>
    <message>
        <source>Web Page</source>
        <translation>Webseite</translation>
    </message>
    <message>
        <source>Source Code</source>
        <translation>Quelltext</translation>
    </message>
    <message>
        <source>Launch at Login</source>
        <translation>Bei der Anmeldung starten</translation>
    </message>
    <message>
        <source>Close Editor</source>
        <translation>Editor schließen</translation>
    </message>
    <message>
        <source>Still Wallpaper</source>
        <extracomment>a wallpaper that does not move</extracomment>
        <translation>Standbild</translation>
    </message>
    <message>
        <source>Animated Wallpaper</source>
        <translation>Animiertes Hintergrundbild</translation>
    </message>
    <message>
        <source>Presets</source>
        <translation>Vorlagen</translation>
    </message>
    <message>
        <source>Fresh Bowl</source>
        <extracomment>a new wallpaper every hour or day</extracomment>
        <translation>Frisch serviert</translation>
    </message>
    <message>
        <source>Handle Position</source>
        <extracomment>the round handle at the edge of the screen</extracomment>
        <translation>Position des Griffs</translation>
    </message>
    <message>
        <source>Check for Updates...</source>
        <translation>Nach Aktualisierungen suchen&#xa0;…</translation>
    </message>
    <message>
        <source>Made by the Tessel Broth developers</source>
        <translation>Vom Tessel-Broth-Team</translation>
    </message>
    <message>
        <source>Save as Preset...</source>
        <translation>Als Vorlage speichern&#xa0;…</translation>
    </message>
    <message>
        <source>Keyboard Shortcuts...</source>
        <translation>Tastenkürzel&#xa0;…</translation>
    </message>
    <message>
        <source>Wallpapers stay still here</source>
        <extracomment>&quot;here&quot;: on this desktop</extracomment>
        <translation>Hintergrundbilder stehen hier still</translation>
    </message>
    <message>
        <source>Wallpapers stay still here, and there is no handle</source>
        <translation>Hintergrundbilder stehen hier still, und es gibt keinen Griff</translation>
    </message>
</context>
<context>
    <name>SystemTexts</name>
    <message>
        <source>Wallpapers simmered one pixel at a time. Made on your computer, still or gently moving.</source>
        <translation>Hintergrundbilder, Pixel für Pixel geköchelt. Auf dem eigenen Rechner gemacht, still oder sanft bewegt.</translation>
    </message>
    <message>
        <source>The ladle is there when your computer starts.</source>
        <extracomment>the ladle is the handle at the edge of the screen</extracomment>
        <translation>Die Kelle ist da, sobald der Rechner startet.</translation>
    </message>
</context>
<context>
    <name>ToggleRow</name>
    <message>
        <source>On</source>
        <extracomment>the state of a switch</extracomment>
        <translation>Ein</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Aus</translation>
    </message>
</context>
<context>
    <name>WarmPage</name>
    <message>
        <source>Open at login</source>
        <translation>Bei der Anmeldung starten</translation>
    </message>
    <message>
        <source>Serve a new wallpaper on its own.</source>
        <translation>Von selbst ein neues Hintergrundbild servieren.</translation>
    </message>
    <message>
        <source>Fresh bowl</source>
        <extracomment>a new wallpaper every hour or day</extracomment>
        <translation>Frisch serviert</translation>
    </message>
</context>
<context>
    <name>WaylandGlContextText</name>
    <message>
        <source>no OpenGL here: the EGL library is missing (on Debian: libegl1)</source>
        <translation>Kein OpenGL: Die EGL-Bibliothek fehlt (unter Debian: libegl1)</translation>
    </message>
    <message>
        <source>This compositor offers no OpenGL; version 3.3 is needed, and Mesa&apos;s software renderer is enough (on Debian: libgl1-mesa-dri)</source>
        <translation>Dieser Compositor bietet kein OpenGL; nötig ist Version 3.3, und Mesas Software-Renderer genügt (unter Debian: libgl1-mesa-dri)</translation>
    </message>
    <message>
        <source>OpenGL is there, but no version 3.3 core profile for windows</source>
        <translation>OpenGL ist vorhanden, aber kein Core-Profil der Version 3.3 für Fenster</translation>
    </message>
    <message>
        <source>OpenGL is there but cannot be drawn with</source>
        <translation>OpenGL ist vorhanden, lässt sich aber nicht zum Zeichnen verwenden</translation>
    </message>
</context>
<context>
    <name>tessel::AppDelegate</name>
    <message>
        <source>Tessel Broth could not use that</source>
        <translation>Tessel Broth kann das nicht verwenden</translation>
    </message>
    <message>
        <source>Your settings cannot be saved</source>
        <translation>Die Einstellungen können nicht gespeichert werden</translation>
    </message>
    <message>
        <source>Your settings are saved again</source>
        <translation>Die Einstellungen werden wieder gespeichert</translation>
    </message>
    <message>
        <source>Nothing has been lost.</source>
        <translation>Nichts ist verloren gegangen.</translation>
    </message>
    <message>
        <source>The desktop picture stays as it was</source>
        <translation>Das Bild des Desktops bleibt, wie es war</translation>
    </message>
    <message>
        <source>The photo of this wallpaper cannot be shown</source>
        <translation>Das Foto dieses Hintergrundbilds kann nicht gezeigt werden</translation>
    </message>
    <message>
        <source>Tessel Broth is ready</source>
        <translation>Tessel Broth ist bereit</translation>
    </message>
    <message>
        <source>Click the bowl in your panel and choose New Wallpaper for your first one.</source>
        <translation>Auf die Schale in der Leiste klicken: Das erste Hintergrundbild gibt es dort unter „Neues Hintergrundbild“.</translation>
    </message>
    <message>
        <source>Start Tessel Broth once more to see its menu and choose New Wallpaper for your first one.</source>
        <translation>Tessel Broth noch einmal starten, um sein Menü zu sehen: Das erste Hintergrundbild gibt es dort unter „Neues Hintergrundbild“.</translation>
    </message>
    <message>
        <source>Start Tessel Broth once more to make your first wallpaper in its editor.</source>
        <translation>Tessel Broth noch einmal starten, um im Editor das erste Hintergrundbild zu gestalten.</translation>
    </message>
    <message>
        <source>Point at the round handle at the edge of your screen and choose New wallpaper for your first one.</source>
        <translation>Auf den runden Griff am Bildschirmrand zeigen: Das erste Hintergrundbild gibt es dort unter „Neues Hintergrundbild“.</translation>
    </message>
    <message>
        <source>%1. Tessel Broth keeps trying.</source>
        <extracomment>%1 says why, without an end</extracomment>
        <translation>%1. Tessel Broth versucht es weiter.</translation>
    </message>
</context>
<context>
    <name>tessel::ColorField</name>
    <message>
        <source>Colour %1</source>
        <translation>Farbe %1</translation>
    </message>
    <message>
        <source>hex %1</source>
        <extracomment>six hexadecimal digits, for screen readers</extracomment>
        <translation>Hex %1</translation>
    </message>
</context>
<context>
    <name>tessel::DesktopPictures</name>
    <message>
        <source>it answered “%1”.</source>
        <extracomment>&quot;it&quot; is the desktop; behind a colon</extracomment>
        <translation>Er hat mit „%1“ geantwortet.</translation>
    </message>
    <message>
        <source>it is not running any more.</source>
        <extracomment>&quot;it&quot; is the desktop; behind a colon</extracomment>
        <translation>Er läuft nicht mehr.</translation>
    </message>
    <message>
        <source>it does not allow it.</source>
        <extracomment>&quot;it&quot; is the desktop; behind a colon</extracomment>
        <translation>Er erlaubt es nicht.</translation>
    </message>
    <message>
        <source>the program %1 is not installed.</source>
        <translation>Das Programm %1 ist nicht installiert.</translation>
    </message>
    <message>
        <source>it does not answer.</source>
        <extracomment>&quot;it&quot; is the desktop; behind a colon</extracomment>
        <translation>Er antwortet nicht.</translation>
    </message>
    <message>
        <source>its setting “%1” stays as it was.</source>
        <extracomment>&quot;it&quot; is the desktop; behind a colon</extracomment>
        <translation>Seine Einstellung „%1“ bleibt, wie sie war.</translation>
    </message>
    <message>
        <source>its settings in %1 stay as they were.</source>
        <extracomment>&quot;it&quot; is the desktop; behind a colon</extracomment>
        <translation>Seine Einstellungen in %1 bleiben, wie sie waren.</translation>
    </message>
    <message>
        <source>it lets programs set only its first monitor&apos;s.</source>
        <extracomment>&quot;it&quot; is the desktop; behind a colon</extracomment>
        <translation>Er lässt Programme nur das Bild des ersten Monitors setzen.</translation>
    </message>
    <message>
        <source>The desktop did not take the picture for %1: %2</source>
        <translation>Der Desktop hat das Bild für %1 nicht angenommen: %2</translation>
    </message>
    <message>
        <source>the file %1 cannot be read: %2.</source>
        <translation>Die Datei %1 kann nicht gelesen werden: %2.</translation>
    </message>
    <message>
        <source>it has no desktop on this monitor.</source>
        <extracomment>&quot;it&quot; is the desktop; behind a colon</extracomment>
        <translation>Er hat auf diesem Monitor keine Arbeitsfläche.</translation>
    </message>
    <message>
        <source>it kept the picture that it had. Is its layout locked?</source>
        <extracomment>&quot;it&quot; is the desktop; behind a colon</extracomment>
        <translation>Er hat das bisherige Bild behalten. Ist seine Anordnung gesperrt?</translation>
    </message>
    <message>
        <source>it shows too few colours.</source>
        <extracomment>&quot;it&quot; is the desktop; behind a colon</extracomment>
        <translation>Er zeigt zu wenige Farben.</translation>
    </message>
    <message>
        <source>the X server has no memory for it.</source>
        <translation>Der X-Server hat keinen Speicher dafür.</translation>
    </message>
    <message>
        <source>there is not enough memory for a picture of %1x%2.</source>
        <translation>Der Speicher reicht nicht für ein Bild von %1&#xa0;×&#xa0;%2&#xa0;Pixeln.</translation>
    </message>
    <message>
        <source>there is not enough memory to write the file %1.</source>
        <translation>Der Speicher reicht nicht, um die Datei %1 zu schreiben.</translation>
    </message>
    <message>
        <source>its settings were changed at the same time, or are locked.</source>
        <extracomment>&quot;it&quot; is the desktop; behind a colon</extracomment>
        <translation>Seine Einstellungen wurden gleichzeitig geändert oder sind gesperrt.</translation>
    </message>
</context>
<context>
    <name>tessel::DesktopShortcuts</name>
    <message>
        <source>Keyboard shortcuts are set up</source>
        <translation>Tastenkürzel sind eingerichtet</translation>
    </message>
    <message>
        <source>Your desktop&apos;s settings list them under Tessel Broth. Change them there.</source>
        <translation>In den Einstellungen des Desktops stehen sie unter Tessel Broth. Dort lassen sie sich ändern.</translation>
    </message>
    <message>
        <source>Your desktop gave no keyboard shortcuts</source>
        <translation>Der Desktop hat keine Tastenkürzel vergeben</translation>
    </message>
    <message>
        <source>You can add one in its settings, for the command %1.</source>
        <extracomment>%1 is a command</extracomment>
        <translation>In seinen Einstellungen lässt sich eines für den Befehl %1 anlegen.</translation>
    </message>
</context>
<context>
    <name>tessel::Dialogs</name>
    <message>
        <source>Preset name</source>
        <translation>Name der Vorlage</translation>
    </message>
    <message>
        <source>A name for this shape, colours, dither and sliders. It stays in Presets, one click from the menu bar.</source>
        <translation>Ein Name für Form, Farben, Raster und Regler. Die Vorlage bleibt unter „Vorlagen“, einen Klick entfernt im Menü der Leiste.</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>tessel::EditorModel</name>
    <message>
        <source>Shape</source>
        <extracomment>what the tabs of the editor change: the pattern, its colours, how tones become cells; short</extracomment>
        <translation>Form</translation>
    </message>
    <message>
        <source>Color</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>Dither</source>
        <translation>Raster</translation>
    </message>
    <message>
        <source>Presets</source>
        <translation>Vorlagen</translation>
    </message>
</context>
<context>
    <name>tessel::Exporter</name>
    <message>
        <source>This display</source>
        <extracomment>a size of pictures: that of</extracomment>
        <translation>Dieser Monitor</translation>
    </message>
    <message>
        <source>6K</source>
        <translation>6K</translation>
    </message>
    <message>
        <source>iPhone</source>
        <translation>iPhone</translation>
    </message>
    <message>
        <source>Square</source>
        <extracomment>a picture as high as it is wide</extracomment>
        <translation>Quadrat</translation>
    </message>
    <message>
        <source>Saving %1</source>
        <translation>Speichern: %1</translation>
    </message>
    <message numerus="yes">
        <source>Saving %n pictures</source>
        <translation>
            <numerusform>Speichern: %n Bild</numerusform>
            <numerusform>Speichern: %n Bilder</numerusform>
        </translation>
    </message>
    <message>
        <source>There is &quot;%1&quot; already. Choose another name.</source>
        <translation>„%1“ gibt es schon. Bitte einen anderen Namen wählen.</translation>
    </message>
    <message>
        <source>Could not save that PNG</source>
        <translation>Das PNG konnte nicht gespeichert werden</translation>
    </message>
</context>
<context>
    <name>tessel::Graphics</name>
    <message>
        <source>OpenGL is there but cannot be drawn with</source>
        <translation>OpenGL ist vorhanden, lässt sich aber nicht zum Zeichnen verwenden</translation>
    </message>
    <message>
        <source>The graphics card was reset and cannot be drawn with again</source>
        <translation>Die Grafikkarte wurde zurückgesetzt und lässt sich nicht wieder zum Zeichnen verwenden</translation>
    </message>
</context>
<context>
    <name>tessel::Knob</name>
    <message>
        <source>.</source>
        <extracomment>between the whole of a number and the rest, as in 1.25</extracomment>
        <translation>,</translation>
    </message>
</context>
<context>
    <name>tessel::LinuxSession</name>
    <message>
        <source>Keeps what is shown before the machine sleeps</source>
        <extracomment>why the machine waits a moment before it sleeps</extracomment>
        <translation>Sichert vor dem Ruhezustand, was gezeigt wird</translation>
    </message>
</context>
<context>
    <name>tessel::LookEditor</name>
    <message>
        <source>On desktop</source>
        <extracomment>what is edited: it is the wallpaper, or nobody has applied it yet</extracomment>
        <translation>Auf dem Desktop</translation>
    </message>
    <message>
        <source>Draft</source>
        <translation>Entwurf</translation>
    </message>
    <message>
        <source>Applied. Apply again</source>
        <extracomment>a button that puts the draft on the desktop</extracomment>
        <translation>Angewendet. Erneut anwenden</translation>
    </message>
    <message>
        <source>Apply to desktop</source>
        <translation>Auf den Desktop anwenden</translation>
    </message>
    <message>
        <source>Plays behind your desktop icons. Speed sets the pace.</source>
        <translation>Läuft hinter den Symbolen. „Tempo“ bestimmt, wie schnell.</translation>
    </message>
    <message>
        <source>Sets the frame in the preview as your desktop picture.</source>
        <translation>Macht das Bild der Vorschau zum Hintergrundbild.</translation>
    </message>
    <message>
        <source>Could not use that photo</source>
        <translation>Dieses Foto lässt sich nicht verwenden</translation>
    </message>
    <message>
        <source>Could not use that look</source>
        <translation>Dieser Look lässt sich nicht verwenden</translation>
    </message>
    <message>
        <source>There is no look in that</source>
        <translation>Das enthält keinen Look</translation>
    </message>
    <message>
        <source>Use the JSON of a look, a PNG from Tessel Broth, or another picture as the photo.</source>
        <translation>Geeignet sind das JSON eines Looks, ein PNG von Tessel Broth oder ein anderes Bild als Foto.</translation>
    </message>
    <message>
        <source>On this desktop, too, it becomes a picture that stays still.</source>
        <translation>Auf diesem Desktop bleibt auch das ein Standbild.</translation>
    </message>
</context>
<context>
    <name>tessel::Onboarding</name>
    <message>
        <source>Tessel
Broth</source>
        <extracomment>titles: two short lines, set very large</extracomment>
        <translation>Tessel
Broth</translation>
    </message>
    <message>
        <source>Meet
the ladle</source>
        <extracomment>two lines. The ladle is the handle at the edge of the screen, the bowl a wallpaper or the icon in the panel</extracomment>
        <translation>Das ist
die Kelle</translation>
    </message>
    <message>
        <source>Pick
a bowl</source>
        <extracomment>two lines; a bowl is a wallpaper to begin with</extracomment>
        <translation>Schale
wählen</translation>
    </message>
    <message>
        <source>Keep
it warm</source>
        <extracomment>two lines; what runs at login keeps the broth warm</extracomment>
        <translation>Warm
halten</translation>
    </message>
    <message>
        <source>A small circle waits on the edge of your screen. Click it for quick actions, click again to open the kitchen.</source>
        <translation>Am Bildschirmrand wartet ein kleiner Kreis. Ein Klick zeigt die Schnellaktionen, ein zweiter öffnet die Küche.</translation>
    </message>
    <message>
        <source>A small bowl waits in your panel. Click it for new wallpapers, presets and everything else.</source>
        <translation>In der Leiste wartet eine kleine Schale. Ein Klick darauf zeigt neue Hintergrundbilder, Vorlagen und alles andere.</translation>
    </message>
    <message>
        <source>Start Tessel Broth once more for its menu: new wallpapers, presets and everything else.</source>
        <translation>Wird Tessel Broth noch einmal gestartet, zeigt es sein Menü: neue Hintergrundbilder, Vorlagen und alles andere.</translation>
    </message>
    <message>
        <source>Two small things. Both can be changed later from the menu bar.</source>
        <translation>Zwei Kleinigkeiten. Beides lässt sich später im Menü der Leiste ändern.</translation>
    </message>
    <message>
        <source>Two small things. Both can be changed later from the menu of the ladle: right-click it.</source>
        <translation>Zwei Kleinigkeiten. Beides lässt sich später im Menü der Kelle ändern: mit einem Rechtsklick.</translation>
    </message>
    <message>
        <source>Two small things. Both can be changed later: start Tessel Broth once more for its menu.</source>
        <translation>Zwei Kleinigkeiten. Beides lässt sich später ändern: Wird Tessel Broth noch einmal gestartet, zeigt es sein Menü.</translation>
    </message>
    <message>
        <source>Step %1 of 4</source>
        <translation>Schritt %1 von 4</translation>
    </message>
    <message>
        <source>Start cooking</source>
        <extracomment>a button: begins the introduction</extracomment>
        <translation>Los geht’s</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Weiter</translation>
    </message>
    <message>
        <source>Serve it</source>
        <extracomment>a button: puts the bowl that was chosen on the desktop</extracomment>
        <translation>Servieren</translation>
    </message>
    <message>
        <source>Let&apos;s eat</source>
        <extracomment>a button: ends the introduction</extracomment>
        <translation>Guten Appetit</translation>
    </message>
    <message>
        <source>Left</source>
        <extracomment>the end of &quot;Keep it on the&quot;</extracomment>
        <translation>Links</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Rechts</translation>
    </message>
    <message>
        <source>Still</source>
        <extracomment>&quot;Still&quot;: a wallpaper that does not move</extracomment>
        <translation>Standbild</translation>
    </message>
    <message>
        <source>Animated</source>
        <translation>Animiert</translation>
    </message>
    <message>
        <source>Hourly</source>
        <extracomment>how often there is a new wallpaper</extracomment>
        <translation>Stündlich</translation>
    </message>
    <message>
        <source>Daily</source>
        <translation>Täglich</translation>
    </message>
    <message>
        <source>Never</source>
        <translation>Nie</translation>
    </message>
</context>
<context>
    <name>tessel::PaletteEditor</name>
    <message>
        <source>Wallpapers already using these colours keep them.</source>
        <translation>Hintergrundbilder, die diese Farben schon verwenden, behalten sie.</translation>
    </message>
    <message>
        <source>Could not use that photo</source>
        <translation>Dieses Foto lässt sich nicht verwenden</translation>
    </message>
    <message>
        <source>It is transparent all over and has no colours.</source>
        <translation>Es ist völlig durchsichtig und hat keine Farben.</translation>
    </message>
    <message>
        <source>Delete &quot;%1&quot;?</source>
        <translation>„%1“ löschen?</translation>
    </message>
</context>
<context>
    <name>tessel::PaletteGrid</name>
    <message>
        <source>Yours</source>
        <extracomment>the user&apos;s own palettes</extracomment>
        <translation>Eigene</translation>
    </message>
    <message>
        <source>More palettes</source>
        <translation>Weitere Paletten</translation>
    </message>
    <message>
        <source>Mine %1</source>
        <extracomment>a name for a palette of the user&apos;s own, with its number</extracomment>
        <translation>Eigene %1</translation>
    </message>
    <message>
        <source>New palette</source>
        <translation>Neue Palette</translation>
    </message>
</context>
<context>
    <name>tessel::PortalLoginItem</name>
    <message>
        <source>They are out of reach from within a sandbox. Please open the settings of your desktop.</source>
        <translation>Aus einer Sandbox heraus ist er nicht erreichbar. Bitte die Einstellungen des Desktops öffnen.</translation>
    </message>
    <message>
        <source>Your desktop still waits for your answer to the last time.</source>
        <translation>Der Desktop wartet noch auf die Antwort vom letzten Mal.</translation>
    </message>
    <message>
        <source>The desktop&apos;s portal cannot be reached, because there is no session bus.</source>
        <translation>Das Portal des Desktops ist nicht erreichbar, weil es keinen Sitzungsbus gibt.</translation>
    </message>
    <message>
        <source>Tessel Broth puts your wallpaper back at login.</source>
        <translation>Tessel Broth stellt bei der Anmeldung das Hintergrundbild wieder her.</translation>
    </message>
    <message>
        <source>The desktop&apos;s portal has not taken it: %1</source>
        <translation>Das Portal des Desktops hat es nicht angenommen: %1</translation>
    </message>
    <message>
        <source>The desktop&apos;s portal could not do it.</source>
        <translation>Das Portal des Desktops konnte es nicht ausführen.</translation>
    </message>
</context>
<context>
    <name>tessel::PresetList</name>
    <message>
        <source>Keeps the shape, colours, dither and every slider, ready to switch to from the menu bar.</source>
        <translation>Bewahrt Form, Farben, Raster und alle Regler auf, jederzeit abrufbar im Menü der Leiste.</translation>
    </message>
    <message>
        <source>Right-click a preset to rename or delete it.</source>
        <translation>Rechtsklick auf eine Vorlage, um sie umzubenennen oder zu löschen.</translation>
    </message>
</context>
<context>
    <name>tessel::QueuedPictures</name>
    <message>
        <source>There is no picture for %1: the file %2 is gone.</source>
        <translation>Für %1 gibt es kein Bild: Die Datei %2 ist verschwunden.</translation>
    </message>
    <message>
        <source>it is of a kind that has no way to set pictures.</source>
        <extracomment>&quot;it&quot; is the desktop; behind a colon</extracomment>
        <translation>Bei dieser Art von Desktop lassen sich keine Bilder setzen.</translation>
    </message>
</context>
<context>
    <name>tessel::QuickActions</name>
    <message>
        <source>New wallpaper</source>
        <translation>Neues Hintergrundbild</translation>
    </message>
    <message>
        <source>Previous wallpaper</source>
        <translation>Vorheriges Hintergrundbild</translation>
    </message>
    <message>
        <source>No previous wallpaper</source>
        <translation>Kein vorheriges Hintergrundbild</translation>
    </message>
    <message>
        <source>Animated · click to freeze</source>
        <extracomment>the state, and what a click does</extracomment>
        <translation>Animiert · Klick hält an</translation>
    </message>
    <message>
        <source>Still · click to animate</source>
        <extracomment>the state, and what a click does</extracomment>
        <translation>Standbild · Klick animiert</translation>
    </message>
    <message>
        <source>Presets</source>
        <translation>Vorlagen</translation>
    </message>
    <message>
        <source>Open editor</source>
        <translation>Editor öffnen</translation>
    </message>
</context>
<context>
    <name>tessel::RunningInstance</name>
    <message>
        <source>It already runs, but does not answer. End it, or log out and in again, and then start it once more.</source>
        <translation>Es läuft bereits, antwortet aber nicht. Erst beenden oder ab- und wieder anmelden, dann noch einmal starten.</translation>
    </message>
    <message>
        <source>Its name on the session bus is not to be had: another program has it, or the bus refuses it. End that program, or log out and in again, and then start Tessel Broth once more. The answer was: %1</source>
        <translation>Der Name auf dem Sitzungsbus ist nicht zu haben: Ein anderes Programm hat ihn, oder der Bus verweigert ihn. Erst dieses Programm beenden oder ab- und wieder anmelden, dann Tessel Broth noch einmal starten. Die Antwort war: %1</translation>
    </message>
</context>
<context>
    <name>tessel::StillMaker</name>
    <message>
        <source>%1: the folder cannot be made: %2</source>
        <translation>%1: Der Ordner kann nicht angelegt werden: %2</translation>
    </message>
    <message>
        <source>There is not enough memory to write %1</source>
        <translation>Der Speicher reicht nicht, um %1 zu schreiben</translation>
    </message>
    <message>
        <source>There is no picture for %1: %2</source>
        <translation>Für %1 gibt es kein Bild: %2</translation>
    </message>
    <message>
        <source>it is larger than what can be drawn here.</source>
        <translation>Es ist größer, als hier gezeichnet werden kann.</translation>
    </message>
    <message>
        <source>The %1x%2 image could not be rendered. Try a smaller size.</source>
        <translation>Das Bild von %1&#xa0;×&#xa0;%2&#xa0;Pixeln konnte nicht berechnet werden. Eine kleinere Größe hilft vielleicht.</translation>
    </message>
</context>
</TS>
