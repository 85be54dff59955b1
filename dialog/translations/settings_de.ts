<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<!-- The words of the configuration model: its table of settings, its choices and its
     reasons. They stand in no source of the dialog; a test compares them with the
     table. -->
<TS version="2.1" language="de_DE" sourcelanguage="en">
<context>
    <name>Settings</name>
    <message>
        <source>Processor</source>
        <translation>Prozessor</translation>
    </message>
    <message>
        <source>Connection</source>
        <translation>Verbindung</translation>
    </message>
    <message>
        <source>Simulator</source>
        <translation>Simulator</translation>
    </message>
    <message>
        <source>Virtual platform</source>
        <translation>Virtuelle Plattform</translation>
    </message>
    <message>
        <source>Stub</source>
        <translation>Stub</translation>
    </message>
    <message>
        <source>Debug device</source>
        <translation>Debug-Gerät</translation>
    </message>
    <message>
        <source>Address map</source>
        <translation>Adressplan</translation>
    </message>
    <message>
        <source>Cable</source>
        <translation>Kabel</translation>
    </message>
    <message>
        <source>JTAG chain</source>
        <translation>JTAG-Kette</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Family</source>
        <translation>Familie</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Typ</translation>
    </message>
    <message>
        <source>Allowed connections</source>
        <translation>Erlaubte Verbindungen</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>Nummer</translation>
    </message>
    <message>
        <source>Connect by</source>
        <translation>Verbinden über</translation>
    </message>
    <message>
        <source>Connection type</source>
        <translation>Art der Verbindung</translation>
    </message>
    <message>
        <source>Memory</source>
        <translation>Speicher</translation>
    </message>
    <message>
        <source>Configuration file</source>
        <translation>Konfigurationsdatei</translation>
    </message>
    <message>
        <source>Host</source>
        <translation>Rechner</translation>
    </message>
    <message>
        <source>Port</source>
        <translation>Port</translation>
    </message>
    <message>
        <source>Configuration mode</source>
        <translation>Konfigurationsmodus</translation>
    </message>
    <message>
        <source>Cycle-approximate</source>
        <translation>Takte näherungsweise</translation>
    </message>
    <message>
        <source>Stub type</source>
        <translation>Art des Stubs</translation>
    </message>
    <message>
        <source>Serial device</source>
        <translation>Serielle Schnittstelle</translation>
    </message>
    <message>
        <source>Baud rate</source>
        <translation>Baudrate</translation>
    </message>
    <message>
        <source>Time-out</source>
        <translation>Zeitgrenze</translation>
    </message>
    <message>
        <source>Base</source>
        <translation>Basis</translation>
    </message>
    <message>
        <source>ISOCM start</source>
        <translation>ISOCM-Anfang</translation>
    </message>
    <message>
        <source>ISOCM size</source>
        <translation>ISOCM-Größe</translation>
    </message>
    <message>
        <source>ISOCM DCR start</source>
        <translation>ISOCM-DCR-Anfang</translation>
    </message>
    <message>
        <source>Instruction cache</source>
        <translation>Befehls-Cache</translation>
    </message>
    <message>
        <source>Data cache</source>
        <translation>Daten-Cache</translation>
    </message>
    <message>
        <source>Instruction tags</source>
        <translation>Befehls-Tags</translation>
    </message>
    <message>
        <source>Data tags</source>
        <translation>Daten-Tags</translation>
    </message>
    <message>
        <source>TLB</source>
        <translation>TLB</translation>
    </message>
    <message>
        <source>DCR</source>
        <translation>DCR</translation>
    </message>
    <message>
        <source>FPU</source>
        <translation>FPU</translation>
    </message>
    <message>
        <source>Processor version</source>
        <translation>Version des Prozessors</translation>
    </message>
    <message>
        <source>Debug module version</source>
        <translation>Version des Debug-Moduls</translation>
    </message>
    <message>
        <source>Processors</source>
        <translation>Prozessoren</translation>
    </message>
    <message>
        <source>ROM start</source>
        <translation>ROM-Anfang</translation>
    </message>
    <message>
        <source>ROM size</source>
        <translation>ROM-Größe</translation>
    </message>
    <message>
        <source>SVF file named</source>
        <translation>SVF-Datei genannt</translation>
    </message>
    <message>
        <source>ModelSim</source>
        <translation>ModelSim</translation>
    </message>
    <message>
        <source>ModelSim host</source>
        <translation>ModelSim-Rechner</translation>
    </message>
    <message>
        <source>ModelSim port</source>
        <translation>ModelSim-Port</translation>
    </message>
    <message>
        <source>UART over the debug module</source>
        <translation>UART über das Debug-Modul</translation>
    </message>
    <message>
        <source>Boundary-scan register</source>
        <translation>Boundary-Scan-Register</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>Befehl</translation>
    </message>
    <message>
        <source>Frequency</source>
        <translation>Frequenz</translation>
    </message>
    <message>
        <source>Serial number</source>
        <translation>Seriennummer</translation>
    </message>
    <message>
        <source>SVF file</source>
        <translation>SVF-Datei</translation>
    </message>
    <message>
        <source>Module</source>
        <translation>Modul</translation>
    </message>
    <message>
        <source>Module arguments</source>
        <translation>Argumente des Moduls</translation>
    </message>
    <message>
        <source>URL</source>
        <translation>URL</translation>
    </message>
    <message>
        <source>Processor's own JTAG pins</source>
        <translation>Eigene JTAG-Pins des Prozessors</translation>
    </message>
    <message>
        <source>Devices</source>
        <translation>Geräte</translation>
    </message>
    <message>
        <source>Part</source>
        <translation>Bauteil</translation>
    </message>
    <message>
        <source>IDCODE</source>
        <translation>IDCODE</translation>
    </message>
    <message>
        <source>Instruction register</source>
        <translation>Befehlsregister</translation>
    </message>
    <message>
        <source>FPGA</source>
        <translation>FPGA</translation>
    </message>
    <message>
        <source>PowerPC hard core</source>
        <translation>PowerPC-Kern</translation>
    </message>
    <message>
        <source>PowerPC hard cores</source>
        <translation>PowerPC-Kerne</translation>
    </message>
    <message>
        <source>No cable</source>
        <translation>Kein Kabel</translation>
    </message>
    <message>
        <source>Hardware</source>
        <translation>Hardware</translation>
    </message>
    <message>
        <source>Stub over a serial line</source>
        <translation>Stub über eine serielle Leitung</translation>
    </message>
    <message>
        <source>Stub over JTAG</source>
        <translation>Stub über JTAG</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nein</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Ja</translation>
    </message>
    <message>
        <source>Instance name in the design.</source>
        <translation>Name der Instanz im Design.</translation>
    </message>
    <message>
        <source>Family of the processor: 0 Lumacore, 1 PowerPC, 2 ARM.</source>
        <translation>Familie des Prozessors: 0 Lumacore, 1 PowerPC, 2 ARM.</translation>
    </message>
    <message>
        <source>Type of the processor: 0 Lumacore, 1 ppc405, 2 ppc440, 4 Cortex-A9, 5 Cortex-R5, 6 a PowerPC whose model is not known.</source>
        <translation>Typ des Prozessors: 0 Lumacore, 1 ppc405, 2 ppc440, 4 Cortex-A9, 5 Cortex-R5, 6 ein PowerPC unbekannten Modells.</translation>
    </message>
    <message>
        <source>The kinds of connection that the design allows, a bit each.</source>
        <translation>Die Arten von Verbindungen, die das Design erlaubt, je ein Bit.</translation>
    </message>
    <message>
        <source>Number of the processor on its debug module.</source>
        <translation>Nummer des Prozessors an seinem Debug-Modul.</translation>
    </message>
    <message>
        <source>How the debugger reaches the processor.</source>
        <translation>Wie der Debugger den Prozessor erreicht.</translation>
    </message>
    <message>
        <source>Number of the kind of connection: 1 simulator, 2 hardware, 4 stub, 8 virtual platform.</source>
        <translation>Nummer der Art der Verbindung: 1 Simulator, 2 Hardware, 4 Stub, 8 virtuelle Plattform.</translation>
    </message>
    <message>
        <source>Memory size of the soft processor's simulator.</source>
        <translation>Speichergröße im Simulator des Soft-Prozessors.</translation>
    </message>
    <message>
        <source>File that configures the PowerPC simulator; it takes the place of host and port.</source>
        <translation>Datei, die den PowerPC-Simulator konfiguriert; sie tritt an die Stelle von Rechner und Port.</translation>
    </message>
    <message>
        <source>Host on which the PowerPC simulator or the virtual platform runs.</source>
        <translation>Rechner, auf dem der PowerPC-Simulator oder die virtuelle Plattform läuft.</translation>
    </message>
    <message>
        <source>Port of the PowerPC simulator or the virtual platform.</source>
        <translation>Port des PowerPC-Simulators oder der virtuellen Plattform.</translation>
    </message>
    <message>
        <source>Starts the virtual platform in its configuration mode.</source>
        <translation>Startet die virtuelle Plattform in ihrem Konfigurationsmodus.</translation>
    </message>
    <message>
        <source>Counts cycles approximately; a part of the configuration mode.</source>
        <translation>Zählt Takte näherungsweise; ein Teil des Konfigurationsmodus.</translation>
    </message>
    <message>
        <source>How the stub is reached: 0 over JTAG, 1 over a serial line.</source>
        <translation>Wie der Stub erreicht wird: 0 über JTAG, 1 über eine serielle Leitung.</translation>
    </message>
    <message>
        <source>Serial device that leads to the stub.</source>
        <translation>Serielle Schnittstelle, die zum Stub führt.</translation>
    </message>
    <message>
        <source>Bits per second of the stub's line.</source>
        <translation>Bits je Sekunde auf der Leitung des Stubs.</translation>
    </message>
    <message>
        <source>How long to wait for the stub's answers.</source>
        <translation>Wie lange auf Antworten des Stubs gewartet wird.</translation>
    </message>
    <message>
        <source>Number of the debug device in the JTAG chain, 0 for none.</source>
        <translation>Nummer des Debug-Geräts in der JTAG-Kette, 0 für keines.</translation>
    </message>
    <message>
        <source>Base of the debug address map; it follows the instruction cache's region.</source>
        <translation>Basis des Debug-Adressplans; sie folgt dem Bereich des Befehls-Caches.</translation>
    </message>
    <message>
        <source>Start of the instruction-side on-chip memory.</source>
        <translation>Anfang des befehlsseitigen Speichers auf dem Chip.</translation>
    </message>
    <message>
        <source>Size of the instruction-side on-chip memory.</source>
        <translation>Größe des befehlsseitigen Speichers auf dem Chip.</translation>
    </message>
    <message>
        <source>Start of the DCR registers of the instruction-side on-chip memory.</source>
        <translation>Anfang der DCR-Register des befehlsseitigen Speichers auf dem Chip.</translation>
    </message>
    <message>
        <source>Start of the instruction cache region, and base of the map.</source>
        <translation>Anfang des Bereichs des Befehls-Caches und Basis des Adressplans.</translation>
    </message>
    <message>
        <source>Start of the data cache region.</source>
        <translation>Anfang des Bereichs des Daten-Caches.</translation>
    </message>
    <message>
        <source>Start of the instruction tag region.</source>
        <translation>Anfang des Bereichs der Befehls-Tags.</translation>
    </message>
    <message>
        <source>Start of the data tag region.</source>
        <translation>Anfang des Bereichs der Daten-Tags.</translation>
    </message>
    <message>
        <source>Start of the TLB region.</source>
        <translation>Anfang des TLB-Bereichs.</translation>
    </message>
    <message>
        <source>Start of the DCR region.</source>
        <translation>Anfang des DCR-Bereichs.</translation>
    </message>
    <message>
        <source>Floating-point unit: 0 none, 1 single precision, 2 double precision.</source>
        <translation>Gleitkommaeinheit: 0 keine, 1 einfache, 2 doppelte Genauigkeit.</translation>
    </message>
    <message>
        <source>Version of the processor, as free text.</source>
        <translation>Version des Prozessors, als freier Text.</translation>
    </message>
    <message>
        <source>Version of the debug module, as free text.</source>
        <translation>Version des Debug-Moduls, als freier Text.</translation>
    </message>
    <message>
        <source>Number of processors on the debug module.</source>
        <translation>Zahl der Prozessoren am Debug-Modul.</translation>
    </message>
    <message>
        <source>Start of the read-only memory.</source>
        <translation>Anfang des Nur-Lese-Speichers.</translation>
    </message>
    <message>
        <source>Size of the read-only memory.</source>
        <translation>Größe des Nur-Lese-Speichers.</translation>
    </message>
    <message>
        <source>A cable clause has named an SVF file.</source>
        <translation>Eine Kabelklausel hat eine SVF-Datei genannt.</translation>
    </message>
    <message>
        <source>Simulates together with ModelSim.</source>
        <translation>Simuliert gemeinsam mit ModelSim.</translation>
    </message>
    <message>
        <source>Host on which ModelSim runs.</source>
        <translation>Rechner, auf dem ModelSim läuft.</translation>
    </message>
    <message>
        <source>Port of ModelSim.</source>
        <translation>Port von ModelSim.</translation>
    </message>
    <message>
        <source>Passes the processor's serial output through the debug module.</source>
        <translation>Leitet die serielle Ausgabe des Prozessors durch das Debug-Modul.</translation>
    </message>
    <message>
        <source>User register through which the debug module is reached.</source>
        <translation>Benutzerregister, über das das Debug-Modul erreicht wird.</translation>
    </message>
    <message>
        <source>The connect command that was read or written last.</source>
        <translation>Der Verbindungsbefehl, der zuletzt gelesen oder geschrieben wurde.</translation>
    </message>
    <message>
        <source>Cable between the debugger and the board; choosing another one starts it anew.</source>
        <translation>Kabel zwischen Debugger und Platine; wer ein anderes wählt, beginnt damit neu.</translation>
    </message>
    <message>
        <source>Clock of the JTAG chain.</source>
        <translation>Takt der JTAG-Kette.</translation>
    </message>
    <message>
        <source>Port that the cable is plugged into.</source>
        <translation>Port, in dem das Kabel steckt.</translation>
    </message>
    <message>
        <source>Electronic serial number that picks one of several cables; it takes the place of port and frequency.</source>
        <translation>Elektronische Seriennummer, die eines von mehreren Kabeln auswählt; sie tritt an die Stelle von Port und Frequenz.</translation>
    </message>
    <message>
        <source>File that an SVF cable writes.</source>
        <translation>Datei, die ein SVF-Kabel schreibt.</translation>
    </message>
    <message>
        <source>Module of a plug-in cable.</source>
        <translation>Modul eines Plug-in-Kabels.</translation>
    </message>
    <message>
        <source>Arguments of the plug-in's module, with ';' between them.</source>
        <translation>Argumente des Plug-in-Moduls, mit ';' dazwischen.</translation>
    </message>
    <message>
        <source>Address of the cable.</source>
        <translation>Adresse des Kabels.</translation>
    </message>
    <message>
        <source>The processor's own JTAG pins are the debug path; no command with this mark can be read back.</source>
        <translation>Die eigenen JTAG-Pins des Prozessors sind der Debug-Pfad; kein Befehl mit diesem Merkmal lässt sich wieder lesen.</translation>
    </message>
    <message>
        <source>The devices of the JTAG chain, in their order.</source>
        <translation>Die Geräte der JTAG-Kette, in ihrer Reihenfolge.</translation>
    </message>
    <message>
        <source>Name of the part.</source>
        <translation>Name des Bauteils.</translation>
    </message>
    <message>
        <source>JTAG IDCODE of the device.</source>
        <translation>JTAG-IDCODE des Geräts.</translation>
    </message>
    <message>
        <source>Length of the instruction register.</source>
        <translation>Länge des Befehlsregisters.</translation>
    </message>
    <message>
        <source>Position of the device in the chain.</source>
        <translation>Platz des Geräts in der Kette.</translation>
    </message>
    <message>
        <source>The device is an FPGA.</source>
        <translation>Das Gerät ist ein FPGA.</translation>
    </message>
    <message>
        <source>Hard core inside the device: 0 none, 1 ppc405, 2 another PowerPC.</source>
        <translation>Kern im Gerät: 0 keiner, 1 ppc405, 2 ein anderer PowerPC.</translation>
    </message>
    <message>
        <source>Number of PowerPC hard cores inside the device.</source>
        <translation>Zahl der PowerPC-Kerne im Gerät.</translation>
    </message>
    <message>
        <source>no command can be written that carries it</source>
        <translation>es gibt keinen Befehl, der sie trägt</translation>
    </message>
    <message>
        <source>a command for this kind of connection does not carry it</source>
        <translation>ein Befehl für diese Art von Verbindung trägt sie nicht</translation>
    </message>
    <message>
        <source>a command does not carry it for this cable</source>
        <translation>für dieses Kabel trägt ein Befehl sie nicht</translation>
    </message>
    <message>
        <source>the serial number takes its place</source>
        <translation>die Seriennummer tritt an ihre Stelle</translation>
    </message>
    <message>
        <source>the serial number takes the place of port and frequency</source>
        <translation>die Seriennummer tritt an die Stelle von Port und Frequenz</translation>
    </message>
    <message>
        <source>the simulator file takes its place</source>
        <translation>die Simulatordatei tritt an ihre Stelle</translation>
    </message>
    <message>
        <source>the configuration mode takes its place</source>
        <translation>der Konfigurationsmodus tritt an ihre Stelle</translation>
    </message>
    <message>
        <source>it is written with the configuration mode only</source>
        <translation>sie wird nur mit dem Konfigurationsmodus geschrieben</translation>
    </message>
    <message>
        <source>a port without a host is not written</source>
        <translation>ein Port ohne Rechner wird nicht geschrieben</translation>
    </message>
    <message>
        <source>a command carries it for a PowerPC only</source>
        <translation>ein Befehl trägt sie nur für einen PowerPC</translation>
    </message>
    <message>
        <source>a command carries it for a ppc405 only</source>
        <translation>ein Befehl trägt sie nur für einen ppc405</translation>
    </message>
    <message>
        <source>the base of the map comes back as the instruction cache's region</source>
        <translation>die Basis kommt als Bereich des Befehls-Caches zurück</translation>
    </message>
    <message>
        <source>a region without a start is not written</source>
        <translation>ein Bereich ohne Anfang wird nicht geschrieben</translation>
    </message>
    <message>
        <source>a range without start or size is not written</source>
        <translation>ein Bereich ohne Anfang oder Größe wird nicht geschrieben</translation>
    </message>
    <message>
        <source>only USER1 and USER2 can be written</source>
        <translation>nur USER1 und USER2 lassen sich schreiben</translation>
    </message>
    <message>
        <source>no command can be written with this cable</source>
        <translation>mit diesem Kabel lässt sich kein Befehl schreiben</translation>
    </message>
    <message>
        <source>the processor does not allow this kind of connection</source>
        <translation>der Prozessor erlaubt diese Art von Verbindung nicht</translation>
    </message>
    <message>
        <source>it follows from other settings</source>
        <translation>sie folgt aus anderen Einstellungen</translation>
    </message>
    <message>
        <source>the processor leaves no other choice</source>
        <translation>der Prozessor lässt keine andere Wahl</translation>
    </message>
    <message>
        <source>what is written does not depend on it</source>
        <translation>was geschrieben wird, hängt nicht davon ab</translation>
    </message>
    <message>
        <source>the kind of connection decides it</source>
        <translation>die Art der Verbindung bestimmt es</translation>
    </message>
    <message>
        <source>the instruction cache's region is the base of the map</source>
        <translation>der Bereich des Befehls-Caches ist die Basis des Adressplans</translation>
    </message>
    <message>
        <source>choosing a cable brings its port and frequency</source>
        <translation>die Wahl eines Kabels bringt dessen Port und Frequenz mit</translation>
    </message>
    <message>
        <source>undone</source>
        <translation>rückgängig gemacht</translation>
    </message>
    <message>
        <source>done again</source>
        <translation>wiederholt</translation>
    </message>
    <message>
        <source>it was copied</source>
        <translation>kopiert</translation>
    </message>
    <message>
        <source>it is the default</source>
        <translation>es ist die Vorgabe</translation>
    </message>
    <message>
        <source>the command says so</source>
        <translation>der Befehl sagt es so</translation>
    </message>
    <message>
        <source>it started so</source>
        <translation>so hat es begonnen</translation>
    </message>
    <message>
        <source>it is saved so</source>
        <translation>so ist es gespeichert</translation>
    </message>
    <message>
        <source>this processor does not allow what was copied</source>
        <translation>dieser Prozessor erlaubt nicht, was kopiert wurde</translation>
    </message>
    <message>
        <source>bytes</source>
        <translation>Byte</translation>
    </message>
    <message>
        <source>bits</source>
        <translation>Bit</translation>
    </message>
    <message>
        <source>ms</source>
        <translation>ms</translation>
    </message>
    <message>
        <source>yes</source>
        <translation>ja</translation>
    </message>
    <message>
        <source>no</source>
        <translation>nein</translation>
    </message>
    <message>
        <source>no devices</source>
        <translation>keine Geräte</translation>
    </message>
    <message>
        <source>a device</source>
        <translation>ein Gerät</translation>
    </message>
    <message>
        <source>not set</source>
        <translation>nicht gesetzt</translation>
    </message>
    <message>
        <source>nothing</source>
        <translation>nichts</translation>
    </message>
    <message>
        <source>bit/s</source>
        <translation>Bit/s</translation>
    </message>
</context>
</TS>
