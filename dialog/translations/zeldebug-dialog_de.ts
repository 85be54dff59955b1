<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en">
<context>
    <name>Effects</name>
    <message>
        <source>%1 more</source>
        <translation>%1 weitere</translation>
    </message>
    <message>
        <source>%1 becomes %2</source>
        <translation>%1 wird %2</translation>
    </message>
    <message>
        <source>%1 stays %2</source>
        <translation>%1 bleibt %2</translation>
    </message>
</context>
<context>
    <name>Layers</name>
    <message>
        <source>probe %1</source>
        <translation>Sonde %1</translation>
    </message>
    <message>
        <source>profile %1</source>
        <translation>Profil %1</translation>
    </message>
    <message>
        <source>local file</source>
        <translation>lokale Datei</translation>
    </message>
    <message>
        <source>project file</source>
        <translation>Projektdatei</translation>
    </message>
</context>
<context>
    <name>Lists</name>
    <message>
        <source>Severity</source>
        <translation>Schwere</translation>
    </message>
    <message>
        <source>error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>Setting</source>
        <translation>Einstellung</translation>
    </message>
    <message>
        <source>Saved</source>
        <translation>Gespeichert</translation>
    </message>
</context>
<context>
    <name>Origins</name>
    <message>
        <source>default</source>
        <translation>Vorgabe</translation>
    </message>
    <message>
        <source>design</source>
        <translation>Design</translation>
    </message>
    <message>
        <source>changed</source>
        <translation>geändert</translation>
    </message>
    <message>
        <source>file, column %1</source>
        <translation>Datei, Spalte %1</translation>
    </message>
    <message>
        <source>typed, column %1</source>
        <translation>getippt, Spalte %1</translation>
    </message>
    <message>
        <source>project</source>
        <translation>Projekt</translation>
    </message>
</context>
<context>
    <name>Program</name>
    <message>
        <source>Debug configurations of the processors of a design</source>
        <translation>Debug-Konfigurationen der Prozessoren eines Designs</translation>
    </message>
    <message>
        <source>Folder to look for components in, once for each (default: below the folder of DESIGN).</source>
        <translation>Ordner, in dem Komponenten gesucht werden, je einmal (Vorgabe: unterhalb des Ordners von DESIGN).</translation>
    </message>
    <message>
        <source>View of a hierarchical component.</source>
        <translation>View einer hierarchischen Komponente.</translation>
    </message>
    <message>
        <source>One more table of component kinds.</source>
        <translation>Eine weitere Typentabelle.</translation>
    </message>
    <message>
        <source>Option files lie in etc/ below this folder (default: below the working directory).</source>
        <translation>Optionsdateien liegen in etc/ unterhalb dieses Ordners (Vorgabe: unterhalb des Arbeitsverzeichnisses).</translation>
    </message>
    <message>
        <source>IP-XACT design file, or the component file on top of a hierarchy; or a project file (*.toml).</source>
        <translation>IP-XACT-Designdatei oder die oberste Komponentendatei einer Hierarchie; oder eine Projektdatei (*.toml).</translation>
    </message>
    <message>
        <source>Project file, in place of DESIGN.</source>
        <translation>Projektdatei anstelle von DESIGN.</translation>
    </message>
    <message>
        <source>Probe of the project, or none.</source>
        <translation>Sonde des Projekts, oder none.</translation>
    </message>
    <message>
        <source>Profile of the project, or none.</source>
        <translation>Profil des Projekts, oder none.</translation>
    </message>
    <message>
        <source>one design or project at a time, not %1</source>
        <translation>ein Design oder Projekt auf einmal, nicht %1</translation>
    </message>
    <message>
        <source>--%1 is of a project, and there is none</source>
        <translation>--%1 gehört zu einem Projekt, und es gibt keines</translation>
    </message>
</context>
<context>
    <name>Saving</name>
    <message>
        <source>Before saving</source>
        <translation>Vor dem Speichern</translation>
    </message>
    <message>
        <source>What will not &amp;survive</source>
        <translation>Was &amp;verloren geht</translation>
    </message>
    <message>
        <source>What &amp;differs from what is saved</source>
        <translation>Was vom &amp;Gespeicherten abweicht</translation>
    </message>
    <message>
        <source>%1: the file is gone since it was loaded, and will be written anew.</source>
        <translation>%1: Die Datei ist seit dem Laden verschwunden und wird neu geschrieben.</translation>
    </message>
    <message>
        <source>%1: the file has changed since it was loaded, and will be overwritten.</source>
        <translation>%1: Die Datei hat sich seit dem Laden geändert und wird überschrieben.</translation>
    </message>
    <message>
        <source>%1: these settings will not survive: %2.</source>
        <translation>%1: Diese Einstellungen gehen verloren: %2.</translation>
    </message>
    <message>
        <source>%1: what is saved cannot be read, and will be replaced: %2.</source>
        <translation>%1: Was gespeichert ist, kann nicht gelesen werden und wird ersetzt: %2.</translation>
    </message>
    <message>
        <source>%1: the file is read-only, and will be replaced.</source>
        <translation>%1: Die Datei ist schreibgeschützt und wird ersetzt.</translation>
    </message>
    <message>
        <source>Save anyway</source>
        <translation>Trotzdem speichern</translation>
    </message>
    <message>
        <source>The folder is not there</source>
        <translation>Der Ordner ist nicht da</translation>
    </message>
    <message>
        <source>%1

Make the folder?</source>
        <translation>%1

Den Ordner anlegen?</translation>
    </message>
    <message>
        <source>Not saved</source>
        <translation>Nicht gespeichert</translation>
    </message>
    <message>
        <source>Not in the project</source>
        <translation>Nicht im Projekt</translation>
    </message>
    <message>
        <source>The option file is saved, and the project is as it was: %1</source>
        <translation>Die Optionsdatei ist gespeichert, und das Projekt ist, wie es war: %1</translation>
    </message>
</context>
<context>
    <name>Values</name>
    <message>
        <source>(empty)</source>
        <translation>(leer)</translation>
    </message>
</context>
<context>
    <name>ZelDebugDialog::BoardPage</name>
    <message>
        <source>No processor of this design can be debugged.</source>
        <translation>Kein Prozessor dieses Designs lässt sich debuggen.</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Save &amp;all</source>
        <translation>&amp;Alle speichern</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>Re&amp;vert to what is saved</source>
        <translation>&amp;Zurück zum Gespeicherten</translation>
    </message>
    <message>
        <source>Back to the &amp;defaults</source>
        <translation>Zurück zu den &amp;Vorgaben</translation>
    </message>
    <message>
        <source>&amp;Copy to other processors…</source>
        <translation>Auf andere Prozessoren &amp;kopieren …</translation>
    </message>
    <message>
        <source>%1 (%2) cannot be debugged: %3.</source>
        <translation>%1 (%2) lässt sich nicht debuggen: %3.</translation>
    </message>
    <message>
        <source>Not saved yet</source>
        <translation>Noch nicht gespeichert</translation>
    </message>
    <message>
        <source>These configurations are changed: %1.

Save them?</source>
        <translation>Diese Konfigurationen sind geändert: %1.

Sollen sie gespeichert werden?</translation>
    </message>
</context>
<context>
    <name>ZelDebugDialog::ConfigurationPage</name>
    <message>
        <source>What else has changed</source>
        <translation>Was sich noch geändert hat</translation>
    </message>
    <message>
        <source>&amp;Keep mine and overwrite</source>
        <translation>Meine behalten und über&amp;schreiben</translation>
    </message>
    <message>
        <source>&amp;Take the file&apos;s</source>
        <translation>Die der Datei &amp;nehmen</translation>
    </message>
    <message>
        <source>&amp;Go on</source>
        <translation>&amp;Weiter</translation>
    </message>
    <message>
        <source>What is saved cannot be read: %1. These are the defaults; saving them takes its place.</source>
        <translation>Das Gespeicherte ist nicht lesbar: %1. Dies sind die Vorgaben; wer sie speichert, ersetzt es.</translation>
    </message>
    <message>
        <source>%1 is gone since it was loaded.</source>
        <translation>%1 ist seit dem Laden verschwunden.</translation>
    </message>
    <message>
        <source>%1 has changed since it was loaded.</source>
        <translation>%1 hat sich geändert, seit sie geladen wurde.</translation>
    </message>
    <message>
        <source>Will not &amp;survive</source>
        <translation>Geht ver&amp;loren</translation>
    </message>
    <message>
        <source>Not saved &amp;yet</source>
        <translation>Noch nicht &amp;gespeichert</translation>
    </message>
    <message>
        <source>Fa&amp;ults</source>
        <translation>&amp;Fehler</translation>
    </message>
</context>
<context>
    <name>ZelDebugDialog::dialog::ChainEditor</name>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>Add a device</source>
        <translation>Ein Gerät hinzufügen</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Remove the device</source>
        <translation>Das Gerät entfernen</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Nach oben</translation>
    </message>
    <message>
        <source>Move the device up</source>
        <translation>Das Gerät nach oben schieben</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Nach unten</translation>
    </message>
    <message>
        <source>Move the device down</source>
        <translation>Das Gerät nach unten schieben</translation>
    </message>
    <message>
        <source>Device %1, %2: %3</source>
        <translation>Gerät %1, %2: %3</translation>
    </message>
</context>
<context>
    <name>ZelDebugDialog::dialog::CommandEdit</name>
    <message>
        <source>Connect command</source>
        <translation>Verbindungsbefehl</translation>
    </message>
    <message>
        <source>Words that fit here</source>
        <translation>Wörter, die hier passen</translation>
    </message>
</context>
<context>
    <name>ZelDebugDialog::dialog::CommandPanel</name>
    <message>
        <source>Connect &amp;command</source>
        <translation>&amp;Verbindungsbefehl</translation>
    </message>
    <message>
        <source>Ctrl+Space completes, Ctrl+Return leads to the setting of a word</source>
        <translation>Strg+Leertaste vervollständigt, Strg+Eingabe führt zur Einstellung eines Wortes</translation>
    </message>
    <message>
        <source>No command can be written: %1</source>
        <translation>Es lässt sich kein Befehl schreiben: %1</translation>
    </message>
    <message>
        <source>Not taken yet; the settings are as they were.</source>
        <translation>Noch nicht übernommen; die Einstellungen sind, wie sie waren.</translation>
    </message>
    <message>
        <source>Written as: %1</source>
        <translation>Geschrieben als: %1</translation>
    </message>
</context>
<context>
    <name>ZelDebugDialog::dialog::CopyDialog</name>
    <message>
        <source>Copy the configuration</source>
        <translation>Die Konfiguration kopieren</translation>
    </message>
    <message>
        <source>&amp;Copy the settings of %1 to:</source>
        <translation>Die Einstellungen von %1 &amp;kopieren auf:</translation>
    </message>
    <message>
        <source>Other processors</source>
        <translation>Andere Prozessoren</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
</context>
<context>
    <name>ZelDebugDialog::dialog::DesignMessages</name>
    <message>
        <source>Messages about the design</source>
        <translation>Meldungen zum Design</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>Zeile</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Meldung</translation>
    </message>
    <message>
        <source>note</source>
        <translation>Hinweis</translation>
    </message>
</context>
<context>
    <name>ZelDebugDialog::dialog::DifferenceList</name>
    <message>
        <source>What differs from what is saved</source>
        <translation>Was vom Gespeicherten abweicht</translation>
    </message>
    <message>
        <source>Now</source>
        <translation>Jetzt</translation>
    </message>
</context>
<context>
    <name>ZelDebugDialog::dialog::FaultList</name>
    <message>
        <source>What is wrong with the command</source>
        <translation>Was am Befehl falsch ist</translation>
    </message>
    <message>
        <source>Column</source>
        <translation>Spalte</translation>
    </message>
    <message>
        <source>Nearest match</source>
        <translation>Ähnlichstes Wort</translation>
    </message>
    <message>
        <source>What is wrong</source>
        <translation>Was falsch ist</translation>
    </message>
    <message>
        <source>Replace by %1</source>
        <translation>Durch %1 ersetzen</translation>
    </message>
</context>
<context>
    <name>ZelDebugDialog::dialog::LineEditor</name>
    <message>
        <source>Choose a file</source>
        <translation>Eine Datei wählen</translation>
    </message>
    <message>
        <source>Choose a file: %1</source>
        <translation>Eine Datei wählen: %1</translation>
    </message>
</context>
<context>
    <name>ZelDebugDialog::dialog::LossList</name>
    <message>
        <source>What will not survive saving</source>
        <translation>Was beim Speichern verloren geht</translation>
    </message>
    <message>
        <source>Stops saving</source>
        <translation>Verhindert Speichern</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Comes back as</source>
        <translation>Kommt zurück als</translation>
    </message>
    <message>
        <source>Why</source>
        <translation>Warum</translation>
    </message>
    <message>
        <source>What to do</source>
        <translation>Was tun</translation>
    </message>
</context>
<context>
    <name>ZelDebugDialog::dialog::MainWindow</name>
    <message>
        <source>Open a design or a project, or drop its file here.</source>
        <translation>Ein Design oder ein Projekt öffnen oder seine Datei hier ablegen.</translation>
    </message>
    <message>
        <source>Reading the design</source>
        <translation>Das Design wird gelesen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Take them from t&amp;here</source>
        <translation>Von d&amp;ort nehmen</translation>
    </message>
    <message>
        <source>Choose a &amp;library folder…</source>
        <translation>Ordner einer Bibliothek wä&amp;hlen …</translation>
    </message>
    <message>
        <source>Choose a ki&amp;nd table…</source>
        <translation>&amp;Typentabelle wählen …</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation>Ö&amp;ffnen …</translation>
    </message>
    <message>
        <source>&amp;Recent designs</source>
        <translation>&amp;Zuletzt geöffnet</translation>
    </message>
    <message>
        <source>&amp;Library folder…</source>
        <translation>Ordner einer &amp;Bibliothek …</translation>
    </message>
    <message>
        <source>&amp;Kind table…</source>
        <translation>&amp;Typentabelle …</translation>
    </message>
    <message>
        <source>&amp;Folder of the option files…</source>
        <translation>&amp;Ordner der Optionsdateien …</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>B&amp;eenden</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>Werkzeuge</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>Reading %1 …</source>
        <translation>%1 wird gelesen …</translation>
    </message>
    <message>
        <source>%1 cannot be read: %2</source>
        <translation>%1 ist nicht lesbar: %2</translation>
    </message>
    <message>
        <source>The design refers to what was not found: %1.</source>
        <translation>Das Design verweist auf etwas, das nicht gefunden wurde: %1.</translation>
    </message>
    <message>
        <source>There is some of it in %1.</source>
        <translation>In %1 ist einiges davon.</translation>
    </message>
    <message>
        <source>No processor of the design can be debugged. A kind table says which of its components are processors and debug modules.</source>
        <translation>Kein Prozessor des Designs lässt sich debuggen. Eine Typentabelle sagt, welche seiner Komponenten Prozessoren und Debug-Module sind.</translation>
    </message>
    <message>
        <source>Debug configurations[*]</source>
        <translation>Debug-Konfigurationen[*]</translation>
    </message>
    <message>
        <source>%1[*] – Debug configurations</source>
        <translation>%1[*] – Debug-Konfigurationen</translation>
    </message>
    <message>
        <source>Option files: %1</source>
        <translation>Optionsdateien: %1</translation>
    </message>
    <message>
        <source>Open a design or a project</source>
        <translation>Design oder Projekt öffnen</translation>
    </message>
    <message>
        <source>Designs and projects (*.xml *.toml);;All files (*)</source>
        <translation>Designs und Projekte (*.xml *.toml);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Choose a library folder</source>
        <translation>Ordner einer Bibliothek wählen</translation>
    </message>
    <message>
        <source>Choose a kind table</source>
        <translation>Typentabelle wählen</translation>
    </message>
    <message>
        <source>Folder of the option files</source>
        <translation>Ordner der Optionsdateien</translation>
    </message>
</context>
<context>
    <name>ZelDebugDialog::dialog::ProcessorList</name>
    <message>
        <source>saved</source>
        <translation>gespeichert</translation>
    </message>
    <message>
        <source>what is saved cannot be read</source>
        <translation>das Gespeicherte ist nicht lesbar</translation>
    </message>
    <message>
        <source>changed, not saved yet</source>
        <translation>geändert, noch nicht gespeichert</translation>
    </message>
    <message>
        <source>nothing is saved</source>
        <translation>nichts ist gespeichert</translation>
    </message>
    <message>
        <source>No.</source>
        <translation>Nr.</translation>
    </message>
    <message>
        <source>cannot be debugged: %1</source>
        <translation>lässt sich nicht debuggen: %1</translation>
    </message>
</context>
<context>
    <name>ZelDebugDialog::dialog::Section</name>
    <message>
        <source>none of its settings is applicable</source>
        <translation>keine ihrer Einstellungen ist anwendbar</translation>
    </message>
    <message>
        <source>folded</source>
        <translation>zugeklappt</translation>
    </message>
    <message>
        <source>unfolded</source>
        <translation>aufgeklappt</translation>
    </message>
</context>
<context>
    <name>ZelDebugDialog::dialog::ProjectBar</name>
    <message>
        <source>How the option file stands to the project</source>
        <translation>Wie die Optionsdatei zum Projekt steht</translation>
    </message>
    <message>
        <source>Ch&amp;anges go to:</source>
        <translation>Änderungen &amp;in:</translation>
    </message>
    <message>
        <source>Where changes go</source>
        <translation>Wohin Änderungen gehen</translation>
    </message>
    <message>
        <source>There is no option file yet.</source>
        <translation>Es gibt noch keine Optionsdatei.</translation>
    </message>
    <message>
        <source>The option file is as the project says.</source>
        <translation>Die Optionsdatei ist, wie das Projekt sagt.</translation>
    </message>
    <message>
        <source>The option file is not as the project says.</source>
        <translation>Die Optionsdatei ist nicht, wie das Projekt sagt.</translation>
    </message>
</context>
<context>
    <name>ZelDebugDialog::dialog::ProjectModel</name>
    <message>
        <source>Option file</source>
        <translation>Optionsdatei</translation>
    </message>
    <message>
        <source>%1 is not there any more: changes go to the option file.</source>
        <translation>%1 gibt es nicht mehr: Änderungen gehen in die Optionsdatei.</translation>
    </message>
    <message>
        <source>Saving writes the option file and leaves the project as it is.</source>
        <translation>Speichern schreibt die Optionsdatei und lässt das Projekt, wie es ist.</translation>
    </message>
    <message>
        <source>Project, each where it belongs</source>
        <translation>Projekt, jede wohin sie gehört</translation>
    </message>
    <message>
        <source>Saving writes the option file and takes the changes into the project: what belongs to this desk to %1, the rest to %2.</source>
        <translation>Speichern schreibt die Optionsdatei und übernimmt die Änderungen ins Projekt: was zu diesem Arbeitsplatz gehört, nach %1, alles andere nach %2.</translation>
    </message>
    <message>
        <source>Saving writes the option file and takes the changes into %1.</source>
        <translation>Speichern schreibt die Optionsdatei und übernimmt die Änderungen nach %1.</translation>
    </message>
    <message>
        <source>Profile %1</source>
        <translation>Profil %1</translation>
    </message>
    <message>
        <source>%1 is changed</source>
        <translation>%1 ist geändert</translation>
    </message>
    <message>
        <source>%1, and %2 more</source>
        <translation>%1, und %2 weitere</translation>
    </message>
</context>
<context>
    <name>ZelDebugDialog::dialog::SettingRow</name>
    <message>
        <source>Back to default: %1</source>
        <translation>Zurück zur Vorgabe: %1</translation>
    </message>
    <message>
        <source>no value</source>
        <translation>kein Wert</translation>
    </message>
    <message>
        <source>Not applicable: %1.</source>
        <translation>Nicht anwendbar: %1.</translation>
    </message>
    <message>
        <source>Default: %1</source>
        <translation>Vorgabe: %1</translation>
    </message>
    <message>
        <source>Where the value comes from</source>
        <translation>Woher der Wert kommt</translation>
    </message>
    <message>
        <source>%1 says %2</source>
        <translation>%1 sagt: %2</translation>
    </message>
</context>
<context>
    <name>ZelDebugDialog::dialog::WordEditor</name>
    <message>
        <source>%1 – %2</source>
        <translation>%1 – %2</translation>
    </message>
</context>
</TS>
