<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>AT_AttrMeta</name>
    <message>
        <source>Colour Information</source>
        <translation>Farbtabelle</translation>
    </message>
    <message>
        <source>Volume Creation</source>
        <translation>Volumen der Objekte</translation>
    </message>
    <message>
        <source>Bevel Multiplier</source>
        <translation>Faktor für Kanten</translation>
    </message>
    <message>
        <source>Elevation Multiplier</source>
        <translation>Faktor für Höhen</translation>
    </message>
    <message>
        <source>Elevation Smoothness Multiplier</source>
        <translation>Faktor für Rundungen</translation>
    </message>
    <message>
        <source>Generate Normals</source>
        <translation>Normalen erzeugen</translation>
    </message>
    <message>
        <source>Consider Truck Factor</source>
        <translation>Kamerafahrt berücksichtigen</translation>
    </message>
    <message>
        <source>Output Elevation in Blue Channel</source>
        <translation>Höhe in den Blaukanal schreiben</translation>
    </message>
    <message>
        <source>Clip Blurred Image with Geometry</source>
        <translation>Kanten an der Zeichnung beschneiden</translation>
    </message>
    <message>
        <source>Normal Map Quality</source>
        <translation>Qualität der Normalen</translation>
    </message>
</context>
<context>
    <name>Vallorin</name>
    <message>
        <source>Normal-Map</source>
        <translation>Normal-Map</translation>
    </message>
    <message>
        <source>Objects</source>
        <translation>Objekte</translation>
    </message>
    <message>
        <source>Bevel and Elevation</source>
        <translation>Kanten und Höhen</translation>
    </message>
    <message>
        <source>Output</source>
        <translation>Ausgabe</translation>
    </message>
</context>
<context>
    <name>Vallorin::NormalQuality</name>
    <message>
        <source>Low</source>
        <translation>Niedrig</translation>
    </message>
    <message>
        <source>Medium</source>
        <translation>Mittel</translation>
    </message>
    <message>
        <source>High</source>
        <translation>Hoch</translation>
    </message>
</context>
<context>
    <name>VolumetricColorEditor</name>
    <message>
        <source>The level of each colour: to the left it carves into the volume, to the right it adds to it.</source>
        <translation>Die Stufe jeder Farbe: links trägt sie vom Volumen ab, rechts trägt sie auf.</translation>
    </message>
    <message>
        <source>Colours</source>
        <translation>Farben</translation>
    </message>
    <message>
        <source>Add colours of the scene&apos;s palettes, or remove those whose rows are selected.</source>
        <translation>Farben aus den Paletten der Szene hinzufügen oder die der ausgewählten Zeilen entfernen.</translation>
    </message>
    <message>
        <source>Carving &lt;------&gt; Adding</source>
        <translation>Abtragen &lt;------&gt; Auftragen</translation>
    </message>
    <message>
        <source>Remove Selected Colours</source>
        <translation>Ausgewählte Farben entfernen</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
</context>
<context>
    <name>VolumetricObjectListEditor</name>
    <message>
        <source>Objects</source>
        <translation>Objekte</translation>
    </message>
    <message>
        <source>Add objects that Object Definition nodes define, or remove those whose rows are selected.</source>
        <translation>Objekte hinzufügen, die Object-Definition-Knoten definieren, oder die der ausgewählten Zeilen entfernen.</translation>
    </message>
    <message>
        <source>ID</source>
        <translation>Nr.</translation>
    </message>
    <message>
        <source>Bevel Size</source>
        <translation>Kante</translation>
    </message>
    <message>
        <source>Elevation</source>
        <translation>Höhe</translation>
    </message>
    <message>
        <source>Elevation Smoothness</source>
        <translation>Rundung</translation>
    </message>
    <message>
        <source>Connected to elements: </source>
        <translation>Verbunden mit den Elementen: </translation>
    </message>
    <message>
        <source>&lt; Not Found &gt;</source>
        <translation>&lt; Nicht gefunden &gt;</translation>
    </message>
    <message>
        <source>This object is not defined by any
Object Definition module.
It might have been deleted or is disabled.</source>
        <translation>Dieses Objekt wird von keinem
Object-Definition-Knoten definiert.
Er wurde gelöscht oder ist abgeschaltet.</translation>
    </message>
    <message>
        <source>-Definition</source>
        <translation>-Definition</translation>
    </message>
    <message>
        <source>The object is defined by the following node</source>
        <translation>Das Objekt wird von folgendem Knoten definiert</translation>
    </message>
    <message>
        <source>The object is defined by the following nodes</source>
        <translation>Das Objekt wird von folgenden Knoten definiert</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Add all Defined Objects</source>
        <translation>Alle definierten Objekte hinzufügen</translation>
    </message>
    <message>
        <source>Remove Selected Objects</source>
        <translation>Ausgewählte Objekte entfernen</translation>
    </message>
</context>
</TS>
