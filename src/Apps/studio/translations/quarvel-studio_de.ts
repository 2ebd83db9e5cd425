<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>AT_Attr</name>
    <message>
        <source>&quot;%1&quot; is not known here and kept as it is</source>
        <translation>„%1“ ist hier unbekannt und wird unverändert behalten</translation>
    </message>
    <message>
        <source>the element &quot;%1&quot; is not known here and kept as it is</source>
        <translation>das Element „%1“ ist hier unbekannt und wird unverändert behalten</translation>
    </message>
    <message>
        <source>Change %1</source>
        <translation>%1 ändern</translation>
    </message>
    <message>
        <source>%1 is outside of the limits; %2 is taken</source>
        <translation>%1 liegt außerhalb der Grenzen; genommen wird %2</translation>
    </message>
    <message>
        <source>parts of the exposure at frame &quot;%1&quot; are not known here and kept as they are</source>
        <translation>Teile der Belichtung bei Bild „%1“ sind hier unbekannt und werden unverändert behalten</translation>
    </message>
    <message>
        <source>an exposure (frame &quot;%1&quot;) cannot be read and is left out</source>
        <translation>eine Belichtung (Bild „%1“) ist nicht lesbar und wird ausgelassen</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a value for it; it stays as it was</source>
        <translation>„%1“ ist dafür kein Wert; alles bleibt, wie es war</translation>
    </message>
</context>
<context>
    <name>AT_AttrMeta</name>
    <message>
        <source>Object Number</source>
        <translation>Objektnummer</translation>
    </message>
    <message>
        <source>Object Level</source>
        <translation>Stufe des Objekts</translation>
    </message>
    <message>
        <source>Scale by Coverage</source>
        <translation>Mit Deckung skalieren</translation>
    </message>
    <message>
        <source>Object Enabled</source>
        <translation>Objekt aktiviert</translation>
    </message>
    <message>
        <source>Truck Factor</source>
        <translation>Kamerafahrt-Faktor</translation>
    </message>
    <message>
        <source>Order of the Inputs</source>
        <translation>Reihenfolge der Eingänge</translation>
    </message>
    <message>
        <source>Drawing</source>
        <translation>Zeichnung</translation>
    </message>
    <message>
        <source>Position X</source>
        <translation>Position X</translation>
    </message>
    <message>
        <source>Position Y</source>
        <translation>Position Y</translation>
    </message>
    <message>
        <source>Scale X</source>
        <translation>Skalierung X</translation>
    </message>
    <message>
        <source>Scale Y</source>
        <translation>Skalierung Y</translation>
    </message>
    <message>
        <source>Rotation</source>
        <translation>Drehung</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>On</source>
        <translation>Ein</translation>
    </message>
    <message>
        <source>Solo</source>
        <translation>Solo</translation>
    </message>
    <message>
        <source>Across</source>
        <translation>Waagerecht</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Senkrecht</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>Höhe</translation>
    </message>
    <message>
        <source>Reach</source>
        <translation>Reichweite</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>Rot</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>Grün</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>Blau</translation>
    </message>
    <message>
        <source>Intensity</source>
        <translation>Stärke</translation>
    </message>
    <message>
        <source>Ambient Red</source>
        <translation>Umgebungslicht: Rot</translation>
    </message>
    <message>
        <source>Ambient Green</source>
        <translation>Umgebungslicht: Grün</translation>
    </message>
    <message>
        <source>Ambient Blue</source>
        <translation>Umgebungslicht: Blau</translation>
    </message>
    <message>
        <source>Ambient Light</source>
        <translation>Umgebungslicht</translation>
    </message>
    <message>
        <source>Highlights</source>
        <translation>Glanz</translation>
    </message>
    <message>
        <source>Tilt to the Right</source>
        <translation>Neigung nach rechts</translation>
    </message>
    <message>
        <source>Tilt Upwards</source>
        <translation>Neigung nach oben</translation>
    </message>
    <message>
        <source>Rim Bevel</source>
        <translation>Randkante</translation>
    </message>
    <message>
        <source>Rim Height</source>
        <translation>Höhe der Randkante</translation>
    </message>
    <message>
        <source>Relief</source>
        <translation>Relief</translation>
    </message>
</context>
<context>
    <name>AT_BoolAttr</name>
    <message>
        <source>On</source>
        <translation>Ein</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Aus</translation>
    </message>
</context>
<context>
    <name>AT_Curve</name>
    <message>
        <source>parts of the curve are not known here and kept as they are</source>
        <translation>Teile der Kurve sind hier unbekannt und werden unverändert behalten</translation>
    </message>
    <message>
        <source>a key of the curve (frame &quot;%1&quot;) cannot be read and is left out</source>
        <translation>ein Keyframe der Kurve (Bild „%1“) ist nicht lesbar und wird ausgelassen</translation>
    </message>
    <message>
        <source>parts of the key at frame %1 are not known here and kept as they are</source>
        <translation>Teile des Keyframes bei Bild %1 sind hier unbekannt und werden unverändert behalten</translation>
    </message>
</context>
<context>
    <name>AttrEditor</name>
    <message>
        <source>%1 (in files: %2)</source>
        <translation>%1 (in Dateien: %2)</translation>
    </message>
    <message>
        <source>Linked: the value comes from another attribute.</source>
        <translation>Verknüpft: Der Wert kommt von einem anderen Attribut.</translation>
    </message>
    <message>
        <source>Choose a file</source>
        <translation>Datei auswählen</translation>
    </message>
</context>
<context>
    <name>Autosave</name>
    <message>
        <source>The folder %1 cannot be made, so nothing can be recovered after a crash.</source>
        <translation>Der Ordner %1 lässt sich nicht anlegen. Nach einem Absturz kann deshalb nichts wiederhergestellt werden.</translation>
    </message>
    <message>
        <source>The file %1 cannot be written.</source>
        <translation>Die Datei %1 lässt sich nicht schreiben.</translation>
    </message>
</context>
<context>
    <name>BusyBar</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>ColourDepthDelegate</name>
    <message>
        <source>Depth</source>
        <translation>Tiefe</translation>
    </message>
</context>
<context>
    <name>ColourDepthModel</name>
    <message>
        <source>%1, %2: has a depth of its own when the box is ticked</source>
        <translation>%1, %2: hat eine eigene Tiefe, wenn das Kästchen angekreuzt ist</translation>
    </message>
    <message>
        <source>%1: a colour that is in no palette any more</source>
        <translation>%1: eine Farbe, die in keiner Palette mehr ist</translation>
    </message>
    <message>
        <source>Colour</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>Carved – Added</source>
        <translation>Eingegraben – Aufgetragen</translation>
    </message>
    <message>
        <source>The colours of the drawing; those with a tick have a depth of their own</source>
        <translation>Die Farben der Zeichnung; die angekreuzten haben eine eigene Tiefe</translation>
    </message>
    <message>
        <source>How deep a colour lies: drag the slider, or double-click the number</source>
        <translation>Wie tief eine Farbe liegt: den Regler ziehen oder die Zahl doppelklicken</translation>
    </message>
    <message>
        <source>0 carves fully, 255 adds fully to the volume; without a number, the object&apos;s own level applies</source>
        <translation>0 gräbt ganz ein, 255 trägt ganz zum Volumen bei; ohne Zahl gilt die Stufe des Objekts</translation>
    </message>
</context>
<context>
    <name>ColourDepthView</name>
    <message>
        <source>&amp;Pick from Picture</source>
        <translation>Aus dem &amp;Bild wählen</translation>
    </message>
    <message>
        <source>Search colours</source>
        <translation>Farben suchen</translation>
    </message>
    <message>
        <source>The next click in the picture selects the colour that is seen there</source>
        <translation>Der nächste Klick ins Bild wählt die Farbe, die dort zu sehen ist</translation>
    </message>
    <message>
        <source>Depth by colour</source>
        <translation>Tiefe nach Farbe</translation>
    </message>
    <message>
        <source>Shows only the colours whose names hold this text</source>
        <translation>Zeigt nur die Farben, deren Namen diesen Text enthalten</translation>
    </message>
    <message>
        <source>Gives the object a bevel that is narrow enough for this depth to show</source>
        <translation>Gibt dem Objekt eine Kante, die schmal genug ist, dass diese Tiefe zu sehen ist</translation>
    </message>
    <message>
        <source>&amp;Lower Bevel to %1</source>
        <translation>Kante auf %1 &amp;senken</translation>
    </message>
    <message>
        <source>Lower Bevel</source>
        <translation>Kante senken</translation>
    </message>
</context>
<context>
    <name>ColourDepths</name>
    <message>
        <source>none</source>
        <translation>keine</translation>
    </message>
    <message>
        <source>Depth of &quot;%1&quot;</source>
        <translation>Tiefe von „%1“</translation>
    </message>
    <message numerus="yes">
        <source>Depth of %n colours</source>
        <translation>
            <numerusform>Tiefe von %n Farbe</numerusform>
            <numerusform>Tiefe von %n Farben</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>DepthHint</name>
    <message>
        <source>Hardly seen: the bevel of %1, %2, is too wide for parts this narrow. Lower it to about %3, or draw them as a layer of their own and carve that.</source>
        <translation>Kaum zu sehen: Die Kante von %1, %2, ist zu breit für so schmale Teile. Senken Sie sie auf etwa %3, oder zeichnen Sie die Teile als eigene Ebene und vertiefen Sie diese.</translation>
    </message>
    <message>
        <source>Not seen: %1 has no other colour, and a depth shows only beside another. Its elevation raises or carves it as a whole.</source>
        <translation>Nicht zu sehen: %1 hat keine andere Farbe, und eine Tiefe zeigt sich nur neben einer anderen. Die Höhe des Objekts hebt oder vertieft es als Ganzes.</translation>
    </message>
</context>
<context>
    <name>DrawingSources</name>
    <message>
        <source>%1 is being written.</source>
        <translation>%1 wird gerade geschrieben.</translation>
    </message>
    <message>
        <source>Add %1</source>
        <translation>%1 hinzufügen</translation>
    </message>
    <message>
        <source>Reload %1</source>
        <translation>%1 neu laden</translation>
    </message>
    <message>
        <source>Replace %1</source>
        <translation>%1 ersetzen</translation>
    </message>
    <message>
        <source>%1 The drawing stays as it was until the file can be read.</source>
        <translation>%1 Die Zeichnung bleibt, wie sie war, bis die Datei gelesen werden kann.</translation>
    </message>
    <message>
        <source>There is not enough memory to open this.</source>
        <translation>Der Speicher reicht nicht, um das zu öffnen.</translation>
    </message>
    <message>
        <source>%1 has changed since the scene was saved and was read again. Undo brings the older drawing back.</source>
        <translation>%1 wurde geändert, seit die Szene gespeichert wurde, und neu gelesen. Rückgängig bringt die ältere Zeichnung zurück.</translation>
    </message>
    <message>
        <source>No longer in %1: %2. The settings are kept in case it comes back.</source>
        <translation>Nicht mehr in %1: %2. Die Einstellungen bleiben erhalten, falls es zurückkommt.</translation>
    </message>
</context>
<context>
    <name>ElementsView</name>
    <message>
        <source>Show at Frame</source>
        <translation>Bei Bild zeigen</translation>
    </message>
    <message>
        <source>Show Nothing</source>
        <translation>Nichts zeigen</translation>
    </message>
    <message>
        <source>Elements</source>
        <translation>Elemente</translation>
    </message>
    <message>
        <source>Drawing</source>
        <translation>Zeichnung</translation>
    </message>
    <message>
        <source>Frames</source>
        <translation>Einzelbilder</translation>
    </message>
    <message>
        <source>Show nothing of the element from the current frame on</source>
        <translation>Ab dem aktuellen Bild nichts von diesem Element zeigen</translation>
    </message>
    <message>
        <source>Double click to show this drawing from the current frame on</source>
        <translation>Doppelklick zeigt diese Zeichnung ab dem aktuellen Bild</translation>
    </message>
    <message>
        <source>Show at Frame %1</source>
        <translation>Bei Bild %1 zeigen</translation>
    </message>
    <message>
        <source>Show the selected drawing from frame %1 on</source>
        <translation>Die ausgewählte Zeichnung ab Bild %1 zeigen</translation>
    </message>
    <message>
        <source>From %1</source>
        <translation>Aus %1</translation>
    </message>
</context>
<context>
    <name>ExportDialog</name>
    <message>
        <source>Export Frames</source>
        <translation>Bilder exportieren</translation>
    </message>
    <message>
        <source>E&amp;xport</source>
        <translation>E&amp;xportieren</translation>
    </message>
    <message>
        <source>&amp;Node</source>
        <translation>K&amp;noten</translation>
    </message>
    <message>
        <source>&amp;Frames</source>
        <translation>Einze&amp;lbilder</translation>
    </message>
    <message>
        <source>For instance 1-24, 1-24x2 for every second one, or 1,5,9-12</source>
        <translation>Zum Beispiel 1-24, 1-24x2 für jedes zweite oder 1,5,9-12</translation>
    </message>
    <message>
        <source> pixels</source>
        <translation> Pixel</translation>
    </message>
    <message>
        <source>&amp;Width</source>
        <translation>Br&amp;eite</translation>
    </message>
    <message>
        <source>The height follows from the scene&apos;s shape</source>
        <translation>Die Höhe ergibt sich aus dem Format der Szene</translation>
    </message>
    <message>
        <source>PNG, 16 bits a channel</source>
        <translation>PNG, 16 Bit pro Kanal</translation>
    </message>
    <message>
        <source>OpenEXR, 32-bit float</source>
        <translation>OpenEXR, 32-Bit-Gleitkomma</translation>
    </message>
    <message>
        <source>OpenEXR, 16-bit float</source>
        <translation>OpenEXR, 16-Bit-Gleitkomma</translation>
    </message>
    <message>
        <source>Tangent space, for engines and compositors</source>
        <translation>Tangentenraum, für Engines und Compositing</translation>
    </message>
    <message>
        <source>The node&apos;s own channels</source>
        <translation>Die eigenen Kanäle des Knotens</translation>
    </message>
    <message>
        <source>&amp;Layout</source>
        <translation>&amp;Kanalbelegung</translation>
    </message>
    <message>
        <source>What the four channels hold</source>
        <translation>Was die vier Kanäle enthalten</translation>
    </message>
    <message>
        <source>Y up: green is bright towards the upper edge</source>
        <translation>Y nach oben: Grün ist zur oberen Kante hin hell</translation>
    </message>
    <message>
        <source>Y down: green is bright towards the lower edge</source>
        <translation>Y nach unten: Grün ist zur unteren Kante hin hell</translation>
    </message>
    <message>
        <source>O&amp;rientation</source>
        <translation>A&amp;usrichtung</translation>
    </message>
    <message>
        <source>Which way the normals&apos; y axis points; engines differ</source>
        <translation>Wohin die Y-Achse der Normalen zeigt; Engines unterscheiden sich darin</translation>
    </message>
    <message>
        <source>How far colours grow past the silhouette, so that filtered edges stay clean</source>
        <translation>Wie weit Farben über die Silhouette hinauswachsen, damit gefilterte Kanten sauber bleiben</translation>
    </message>
    <message>
        <source>Render in &amp;32-bit float</source>
        <translation>Mit &amp;32-Bit-Gleitkomma rendern</translation>
    </message>
    <message>
        <source>Everything in float, for twice the memory; without it only wide forms, where 16 bits would leave grain</source>
        <translation>Alles in Gleitkomma, mit doppeltem Speicherbedarf; sonst nur breite Formen, bei denen 16 Bit eine Körnung hinterließen</translation>
    </message>
    <message>
        <source>Choose...</source>
        <translation>Auswählen …</translation>
    </message>
    <message>
        <source>Chooses the folder</source>
        <translation>Wählt den Ordner aus</translation>
    </message>
    <message>
        <source>Fold&amp;er</source>
        <translation>Or&amp;dner</translation>
    </message>
    <message>
        <source>Where the files go; the folder is made when it does not exist</source>
        <translation>Wohin die Dateien kommen; ein fehlender Ordner wird angelegt</translation>
    </message>
    <message>
        <source>File na&amp;me</source>
        <translation>Dateina&amp;me</translation>
    </message>
    <message>
        <source>#### is where the frame&apos;s number goes</source>
        <translation>#### steht für die Bildnummer</translation>
    </message>
    <message>
        <source>x %1</source>
        <translation>× %1</translation>
    </message>
    <message>
        <source>Folder for the Pictures</source>
        <translation>Ordner für die Bilder</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Stopping...</source>
        <translation>Wird angehalten …</translation>
    </message>
    <message>
        <source>Whose pictures are written</source>
        <translation>Wessen Bilder geschrieben werden</translation>
    </message>
    <message>
        <source>N&amp;ormal map</source>
        <translation>N&amp;ormal-Map</translation>
    </message>
    <message>
        <source>Which way the surface faces</source>
        <translation>Wohin die Oberfläche zeigt</translation>
    </message>
    <message>
        <source>Ele&amp;vation</source>
        <translation>Höhe &amp;pro Objekt</translation>
    </message>
    <message>
        <source>L&amp;it drawing</source>
        <translation>&amp;Beleuchtete Zeichnung</translation>
    </message>
    <message>
        <source>The drawing in the scene&apos;s light, as PNG</source>
        <translation>Die Zeichnung im Licht der Szene, als PNG</translation>
    </message>
    <message>
        <source>&amp;Drawing</source>
        <translation>&amp;Zeichnung</translation>
    </message>
    <message>
        <source>The drawing in the size of the map</source>
        <translation>Die Zeichnung in der Größe der Map</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>Bilder</translation>
    </message>
    <message>
        <source>Most programs</source>
        <translation>Die meisten Programme</translation>
    </message>
    <message>
        <source>As set below</source>
        <translation>Wie unten eingestellt</translation>
    </message>
    <message>
        <source>Tar&amp;get</source>
        <translation>Z&amp;iel</translation>
    </message>
    <message>
        <source>Sets format, orientation, alpha, padding and name as the program wants them</source>
        <translation>Setzt Format, Ausrichtung, Alpha, Rand und Namen, wie das Programm sie erwartet</translation>
    </message>
    <message>
        <source>PNG, 8 bits a channel, dithered</source>
        <translation>PNG, 8 Bit pro Kanal, mit Dithering</translation>
    </message>
    <message>
        <source>Forma&amp;t</source>
        <translation>Forma&amp;t</translation>
    </message>
    <message>
        <source>OpenEXR holds the drawing, normals, elevation and coverage as layers of one file</source>
        <translation>OpenEXR enthält Zeichnung, Normalen, Höhe und Deckung als Ebenen einer Datei</translation>
    </message>
    <message>
        <source>Opaque: no engine bends the vectors at edges</source>
        <translation>Deckend: keine Engine verbiegt die Vektoren an Kanten</translation>
    </message>
    <message>
        <source>Coverage: how much of a pixel is covered</source>
        <translation>Deckung: wie viel eines Pixels bedeckt ist</translation>
    </message>
    <message>
        <source>Hard: opaque where anything is covered</source>
        <translation>Hart: deckend, wo etwas bedeckt ist</translation>
    </message>
    <message>
        <source>&amp;Alpha</source>
        <translation>&amp;Alpha</translation>
    </message>
    <message>
        <source>What the alpha of the normal map holds</source>
        <translation>Was das Alpha der Normal-Map enthält</translation>
    </message>
    <message>
        <source>&amp;Padding</source>
        <translation>&amp;Rand</translation>
    </message>
    <message>
        <source>Writes</source>
        <translation>Schreibt</translation>
    </message>
    <message>
        <source>%1 exists already. Replace it?</source>
        <translation>%1 gibt es schon. Ersetzen?</translation>
    </message>
    <message>
        <source>Writes the pictures</source>
        <translation>Schreibt die Bilder</translation>
    </message>
    <message>
        <source>Closes the dialog; while pictures are written, stops that</source>
        <translation>Schließt den Dialog; hält das Schreiben der Bilder an, wenn es läuft</translation>
    </message>
    <message>
        <source>&amp;Height map</source>
        <translation>Hö&amp;henkarte</translation>
    </message>
    <message>
        <source>How high each place lies in all, objects on top of each other, for displacement and parallax</source>
        <translation>Wie hoch jede Stelle insgesamt liegt, alle Objekte übereinander, für Displacement und Parallaxe</translation>
    </message>
    <message>
        <source>Ambient o&amp;cclusion</source>
        <translation>Umgebungs&amp;verdeckung</translation>
    </message>
    <message>
        <source>How much light from all sides reaches each place: corners are dark</source>
        <translation>Wie viel Licht von allen Seiten jede Stelle erreicht: Ecken sind dunkel</translation>
    </message>
    <message>
        <source>O&amp;bject numbers</source>
        <translation>Ob&amp;jektnummern</translation>
    </message>
    <message>
        <source>The number of each place&apos;s object, as a value rather than a colour</source>
        <translation>Die Nummer des Objekts an jeder Stelle, als Zahlenwert statt als Farbe</translation>
    </message>
    <message>
        <source>Colours...</source>
        <translation>Farben …</translation>
    </message>
    <message>
        <source>Sets how glossy each colour of the drawing is</source>
        <translation>Legt fest, wie stark jede Farbe der Zeichnung glänzt</translation>
    </message>
    <message>
        <source>Gloss mas&amp;k</source>
        <translation>&amp;Glanzmaske</translation>
    </message>
    <message>
        <source>How glossy each place is; roughness where the target takes that</source>
        <translation>Wie stark jede Stelle glänzt; die Rauheit, wenn das Ziel diese erwartet</translation>
    </message>
    <message>
        <source>the highest place of all frames</source>
        <translation>die höchste Stelle aller Bilder</translation>
    </message>
    <message>
        <source>White &amp;stands for</source>
        <translation>&amp;Weiß steht für</translation>
    </message>
    <message>
        <source>The height that white stands for in PNG files of the height map, the same in all frames; OpenEXR files hold heights in pixels</source>
        <translation>Die Höhe, für die Weiß in PNG-Dateien der Höhenkarte steht, dieselbe in allen Bildern; OpenEXR-Dateien enthalten Höhen in Pixeln</translation>
    </message>
    <message>
        <source>How high each object&apos;s surface is by itself: white is highest</source>
        <translation>Wie hoch die Oberfläche jedes Objekts für sich ist: Weiß ist am höchsten</translation>
    </message>
    <message numerus="yes">
        <source>%n files exist already. Replace them?</source>
        <translation>
            <numerusform>%n Datei gibt es schon. Ersetzen?</numerusform>
            <numerusform>%n Dateien gibt es schon. Ersetzen?</numerusform>
        </translation>
    </message>
    <message>
        <source>Rendering 1 picture...</source>
        <translation>1 Bild wird berechnet …</translation>
    </message>
    <message numerus="yes">
        <source>Rendering %n pictures...</source>
        <translation>
            <numerusform>%n Bild wird berechnet …</numerusform>
            <numerusform>%n Bilder werden berechnet …</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ExportJob</name>
    <message>
        <source>Frame %1: %2</source>
        <translation>Bild %1: %2</translation>
    </message>
    <message>
        <source>Stopped; nothing was written.</source>
        <translation>Angehalten; nichts wurde geschrieben.</translation>
    </message>
    <message>
        <source>Stopped; these files are complete: %1</source>
        <translation>Angehalten; diese Dateien sind vollständig: %1</translation>
    </message>
    <message>
        <source>the heights</source>
        <translation>die Höhen</translation>
    </message>
    <message>
        <source>choose a smaller width</source>
        <translation>wählen Sie eine kleinere Breite</translation>
    </message>
    <message>
        <source>1 picture written.</source>
        <translation>1 Bild geschrieben.</translation>
    </message>
    <message numerus="yes">
        <source>%n pictures written.</source>
        <translation>
            <numerusform>%n Bild geschrieben.</numerusform>
            <numerusform>%n Bilder geschrieben.</numerusform>
        </translation>
    </message>
    <message>
        <source>1 picture failed.</source>
        <translation>1 Bild ist fehlgeschlagen.</translation>
    </message>
    <message numerus="yes">
        <source>%n pictures failed.</source>
        <translation>
            <numerusform>%n Bild ist fehlgeschlagen.</numerusform>
            <numerusform>%n Bilder sind fehlgeschlagen.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ExportPlan</name>
    <message>
        <source>None of these frames is in the scene, which has the frames %1 to %2.</source>
        <translation>Keines dieser Bilder liegt in der Szene; sie hat die Bilder %1 bis %2.</translation>
    </message>
    <message>
        <source>%1 would be written over by every frame; write %2.</source>
        <translation>%1 würde von jedem Bild überschrieben; schreiben Sie %2.</translation>
    </message>
    <message>
        <source>Nothing is chosen to be written; choose one of the pictures.</source>
        <translation>Es ist nichts zum Schreiben gewählt; wählen Sie eines der Bilder.</translation>
    </message>
    <message>
        <source>There is no node &quot;%1&quot; any more.</source>
        <translation>Den Knoten „%1“ gibt es nicht mehr.</translation>
    </message>
    <message>
        <source>The node &quot;%1&quot; does not make all of these pictures any more.</source>
        <translation>Der Knoten „%1“ macht nicht mehr alle diese Bilder.</translation>
    </message>
    <message>
        <source>No colour is glossy yet; &quot;Colours...&quot; sets the gloss of each.</source>
        <translation>Noch glänzt keine Farbe; „Farben …“ legt den Glanz jeder Farbe fest.</translation>
    </message>
    <message>
        <source>%1 is the drawing that the scene was made of, and would be lost; choose another name.</source>
        <translation>%1 ist die Zeichnung, aus der die Szene gemacht ist, und ginge verloren; einen anderen Namen wählen.</translation>
    </message>
    <message>
        <source>%1 is a link to another file; choose another name, or remove it.</source>
        <translation>%1 ist eine Verknüpfung mit einer anderen Datei; einen anderen Namen wählen oder sie entfernen.</translation>
    </message>
</context>
<context>
    <name>GlossDialog</name>
    <message>
        <source>%1 %</source>
        <comment>the gloss of a colour</comment>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>Gloss</source>
        <translation>Glanz</translation>
    </message>
    <message>
        <source>Gloss of the Colours</source>
        <translation>Glanz der Farben</translation>
    </message>
    <message>
        <source>How glossy each colour is: 0 % is dull, 100 % shines like polished metal.</source>
        <translation>Wie stark jede Farbe glänzt: 0 % ist stumpf, 100 % glänzt wie poliertes Metall.</translation>
    </message>
    <message>
        <source>Gloss of the colours</source>
        <translation>Glanz der Farben</translation>
    </message>
    <message>
        <source>Colour</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>All other colours</source>
        <translation>Alle anderen Farben</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>HelpDialog</name>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>&amp;First Steps</source>
        <translation>&amp;Erste Schritte</translation>
    </message>
    <message>
        <source>&amp;Keys</source>
        <translation>&amp;Tasten</translation>
    </message>
    <message>
        <source>&lt;b&gt;Drop a drawing&lt;/b&gt; on the window. Its parts become objects, each with a form of its own.</source>
        <translation>&lt;b&gt;Eine Zeichnung&lt;/b&gt; auf das Fenster ziehen. Ihre Teile werden Objekte, jedes mit einer eigenen Form.</translation>
    </message>
    <message>
        <source>&lt;b&gt;Drag the light&lt;/b&gt; over the picture to judge the volume from all sides.</source>
        <translation>&lt;b&gt;Das Licht&lt;/b&gt; über das Bild ziehen, um das Volumen von allen Seiten zu beurteilen.</translation>
    </message>
    <message>
        <source>&lt;b&gt;Export&lt;/b&gt; the normal map at the drawing&apos;s own size.</source>
        <translation>Die Normal-Map in der Größe der Zeichnung &lt;b&gt;exportieren&lt;/b&gt;.</translation>
    </message>
    <message>
        <source>First steps</source>
        <translation>Erste Schritte</translation>
    </message>
    <message>
        <source>Click again at the same place to reach the object below.</source>
        <translation>Noch einmal an dieselbe Stelle klicken, um das Objekt darunter zu erreichen.</translation>
    </message>
    <message>
        <source>Drag a rectangle, or hold Shift, to select several; they change together.</source>
        <translation>Ein Rechteck aufziehen oder die Umschalttaste halten, um mehrere auszuwählen; sie ändern sich gemeinsam.</translation>
    </message>
    <message>
        <source>The wheel zooms; the middle button pans, and so does the left one with Ctrl.</source>
        <translation>Das Mausrad vergrößert und verkleinert; die mittlere Taste verschiebt, und die linke mit Strg ebenso.</translation>
    </message>
    <message>
        <source>Hold Shift while a handle is pulled to change finely; Escape takes the pull back.</source>
        <translation>Beim Ziehen eines Griffs die Umschalttaste halten, um fein zu ändern; Escape nimmt das Ziehen zurück.</translation>
    </message>
    <message>
        <source>Hold Shift over the lit picture and turn the wheel to raise and lower the light.</source>
        <translation>Über dem beleuchteten Bild mit Umschalttaste am Mausrad drehen, um das Licht zu heben und zu senken.</translation>
    </message>
    <message>
        <source>Bevel</source>
        <translation>Kante</translation>
    </message>
    <message>
        <source>how far the rounding reaches in from the outline, in units of which the picture is 720 wide</source>
        <translation>wie weit die Rundung vom Umriss nach innen reicht, in Einheiten, von denen das Bild 720 breit ist</translation>
    </message>
    <message>
        <source>Elevation</source>
        <translation>Höhe</translation>
    </message>
    <message>
        <source>how high the object rises; 1 is 37.5 of these units, negative values sink in</source>
        <translation>wie hoch das Objekt steht; 1 sind 37,5 dieser Einheiten, negative Werte sinken ein</translation>
    </message>
    <message>
        <source>Smoothness</source>
        <translation>Rundung</translation>
    </message>
    <message>
        <source>how round the profile is: more is fuller, less is more pointed</source>
        <translation>wie rund das Profil ist: mehr ist voller, weniger ist spitzer</translation>
    </message>
    <message>
        <source>The mouse in the picture</source>
        <translation>Die Maus im Bild</translation>
    </message>
    <message>
        <source>What the values mean</source>
        <translation>Was die Werte bedeuten</translation>
    </message>
    <message>
        <source>Search keys</source>
        <translation>Tasten suchen</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Tasten</translation>
    </message>
    <message>
        <source>What it does</source>
        <translation>Was geschieht</translation>
    </message>
    <message>
        <source>&lt;b&gt;Click a part&lt;/b&gt; in the picture and pull its handles: bevel, elevation, smoothness, tilt.</source>
        <translation>&lt;b&gt;Einen Teil anklicken&lt;/b&gt; und an seinen Griffen ziehen: Kante, Höhe, Rundung, Neigung.</translation>
    </message>
    <message>
        <source>Tilt</source>
        <translation>Neigung</translation>
    </message>
    <message>
        <source>where the object faces, in degrees to the right and upwards; 0, 0 faces the viewer</source>
        <translation>wohin das Objekt zeigt, in Grad nach rechts und nach oben; 0; 0 zeigt zum Betrachter</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Rim</source>
        <translation>Randkante</translation>
    </message>
    <message>
        <source>the width of a second, narrow bevel at the outline, in the same units; 0 is no rim</source>
        <translation>die Breite einer zweiten, schmalen Kante am Umriss, in denselben Einheiten; 0 ist keine</translation>
    </message>
</context>
<context>
    <name>KeyButton</name>
    <message>
        <source>Remove the key at this frame</source>
        <translation>Keyframe bei diesem Bild entfernen</translation>
    </message>
    <message>
        <source>Set a key at this frame</source>
        <translation>Keyframe bei diesem Bild setzen</translation>
    </message>
</context>
<context>
    <name>LightKeyButton</name>
    <message>
        <source>Key of %1</source>
        <translation>Keyframe von %1</translation>
    </message>
    <message>
        <source>Sets a key at this frame</source>
        <translation>Setzt einen Keyframe bei diesem Bild</translation>
    </message>
    <message>
        <source>Removes the key at this frame</source>
        <translation>Entfernt den Keyframe bei diesem Bild</translation>
    </message>
</context>
<context>
    <name>LightModel</name>
    <message>
        <source>Reset Lights</source>
        <translation>Lichter zurücksetzen</translation>
    </message>
    <message>
        <source>Remove Key of Light</source>
        <translation>Keyframe eines Lichts entfernen</translation>
    </message>
    <message>
        <source>Set Key of Light</source>
        <translation>Keyframe eines Lichts setzen</translation>
    </message>
</context>
<context>
    <name>LightPanel</name>
    <message>
        <source>&amp;Light</source>
        <translation>&amp;Licht</translation>
    </message>
    <message>
        <source>Which light is shown below</source>
        <translation>Welches Licht unten gezeigt wird</translation>
    </message>
    <message>
        <source>&amp;Across</source>
        <translation>Nach &amp;rechts</translation>
    </message>
    <message>
        <source>How far right of the picture&apos;s centre the light stands</source>
        <translation>Wie weit rechts von der Bildmitte das Licht steht</translation>
    </message>
    <message>
        <source>&amp;Up</source>
        <translation>Nach &amp;oben</translation>
    </message>
    <message>
        <source>How far above the picture&apos;s centre the light stands</source>
        <translation>Wie weit über der Bildmitte das Licht steht</translation>
    </message>
    <message>
        <source>&amp;Height</source>
        <translation>H&amp;öhe</translation>
    </message>
    <message>
        <source>How high the light hangs over the drawing: low light grazes, high light flattens
(Shift and the wheel over the picture)</source>
        <translation>Wie hoch das Licht über der Zeichnung hängt: tief gibt Streiflicht, hoch wirkt flach
(Umschalt und Mausrad über dem Bild)</translation>
    </message>
    <message>
        <source>&amp;Intensity</source>
        <translation>&amp;Intensität</translation>
    </message>
    <message>
        <source>How bright the light is</source>
        <translation>Wie hell das Licht ist</translation>
    </message>
    <message>
        <source>The light&apos;s colour</source>
        <translation>Die Farbe des Lichts</translation>
    </message>
    <message>
        <source>&amp;Colour</source>
        <translation>&amp;Farbe</translation>
    </message>
    <message>
        <source>A&amp;mbient</source>
        <translation>&amp;Umgebung</translation>
    </message>
    <message>
        <source>Light from everywhere, which fills the shadows</source>
        <translation>Licht von überall, das die Schatten aufhellt</translation>
    </message>
    <message>
        <source>Hi&amp;ghlights</source>
        <translation>&amp;Glanz</translation>
    </message>
    <message>
        <source>How much the surface gleams</source>
        <translation>Wie stark die Oberfläche glänzt</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>Adds a light</source>
        <translation>Fügt ein Licht hinzu</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Takes this light away</source>
        <translation>Entfernt dieses Licht</translation>
    </message>
    <message>
        <source>Colour of the light</source>
        <translation>Farbe des Lichts</translation>
    </message>
    <message>
        <source>Colour of the ambient light</source>
        <translation>Farbe des Umgebungslichts</translation>
    </message>
    <message>
        <source>Lights: %1</source>
        <translation>Lichter: %1</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>Duplizieren</translation>
    </message>
    <message>
        <source>Adds a light like this one, keys included</source>
        <translation>Fügt ein Licht wie dieses hinzu, samt seinen Keyframes</translation>
    </message>
    <message>
        <source>&amp;On</source>
        <translation>&amp;Ein</translation>
    </message>
    <message>
        <source>Whether the light shines</source>
        <translation>Ob das Licht leuchtet</translation>
    </message>
    <message>
        <source>&amp;Solo</source>
        <translation>S&amp;olo</translation>
    </message>
    <message>
        <source>&amp;Turn</source>
        <translation>&amp;Drehen</translation>
    </message>
    <message>
        <source>What the light is called</source>
        <translation>Wie das Licht heißt</translation>
    </message>
    <message>
        <source>&amp;Name</source>
        <translation>&amp;Name</translation>
    </message>
    <message>
        <source>Directional</source>
        <translation>Gerichtet</translation>
    </message>
    <message>
        <source>Point</source>
        <translation>Punktlicht</translation>
    </message>
    <message>
        <source>Directional: as from far away, the same everywhere.
Point: from where the light stands, weaker with the distance</source>
        <translation>Gerichtet: wie aus großer Ferne, überall gleich.
Punktlicht: von dort, wo das Licht steht, mit der Entfernung schwächer</translation>
    </message>
    <message>
        <source>&amp;Kind</source>
        <translation>A&amp;rt</translation>
    </message>
    <message>
        <source>&amp;Reach</source>
        <translation>Rei&amp;chweite</translation>
    </message>
    <message>
        <source>How far from the point below it a point light is half as bright</source>
        <translation>Wie weit von der Stelle unter ihm ein Punktlicht halb so hell ist</translation>
    </message>
    <message>
        <source>Am&amp;bient colour</source>
        <translation>Um&amp;gebungsfarbe</translation>
    </message>
    <message>
        <source>The ambient light&apos;s colour</source>
        <translation>Die Farbe des Umgebungslichts</translation>
    </message>
    <message>
        <source>&amp;Presets</source>
        <translation>&amp;Vorlagen</translation>
    </message>
    <message>
        <source>Standard</source>
        <translation>Standard</translation>
    </message>
    <message>
        <source>Key and Rim</source>
        <translation>Haupt- und Kantenlicht</translation>
    </message>
    <message>
        <source>Sunset</source>
        <translation>Sonnenuntergang</translation>
    </message>
    <message>
        <source>Torch</source>
        <translation>Fackel</translation>
    </message>
    <message>
        <source>While any light is solo, only solo lights shine</source>
        <translation>Solange ein Licht auf Solo steht, leuchten nur die Solo-Lichter</translation>
    </message>
    <message>
        <source>Moves the light in a circle, to judge the volume; the scene itself does not change</source>
        <translation>Lässt das Licht kreisen, um das Volumen zu beurteilen; die Szene selbst ändert sich nicht</translation>
    </message>
    <message>
        <source>Replaces these lights by a ready-made set</source>
        <translation>Ersetzt diese Lichter durch fertig eingerichtete</translation>
    </message>
</context>
<context>
    <name>MO_CompositeModule</name>
    <message>
        <source>First Input on Top</source>
        <translation>Erster Eingang oben</translation>
    </message>
    <message>
        <source>Last Input on Top</source>
        <translation>Letzter Eingang oben</translation>
    </message>
    <message>
        <source>Composite</source>
        <translation>Überlagerung</translation>
    </message>
</context>
<context>
    <name>MO_DisplayModule</name>
    <message>
        <source>Display</source>
        <translation>Anzeige</translation>
    </message>
</context>
<context>
    <name>MO_EditCommands</name>
    <message>
        <source>Link %1</source>
        <translation>%1 verknüpfen</translation>
    </message>
    <message>
        <source>Unlink %1</source>
        <translation>Verknüpfung von %1 lösen</translation>
    </message>
    <message>
        <source>Add Input Port</source>
        <translation>Eingang hinzufügen</translation>
    </message>
    <message>
        <source>Add Output Port</source>
        <translation>Ausgang hinzufügen</translation>
    </message>
    <message>
        <source>Remove Input Port</source>
        <translation>Eingang entfernen</translation>
    </message>
    <message>
        <source>Remove Output Port</source>
        <translation>Ausgang entfernen</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has no such port</source>
        <translation>„%1“ hat keinen solchen Anschluss</translation>
    </message>
    <message>
        <source>The last port of &quot;%1&quot; is linked; cut its links first</source>
        <translation>Der letzte Anschluss von „%1“ ist verbunden; trennen Sie zuerst seine Verbindungen</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not part of a scene</source>
        <translation>„%1“ gehört zu keiner Szene</translation>
    </message>
    <message>
        <source>Connect &quot;%1&quot; to &quot;%2&quot;</source>
        <translation>„%1“ mit „%2“ verbinden</translation>
    </message>
    <message>
        <source>Disconnect &quot;%1&quot;</source>
        <translation>„%1“ trennen</translation>
    </message>
    <message>
        <source>Move Link to &quot;%1&quot;</source>
        <translation>Verbindung auf „%1“ verlegen</translation>
    </message>
    <message>
        <source>&quot;%1&quot;</source>
        <translation>„%1“</translation>
    </message>
    <message>
        <source>%1 Nodes</source>
        <translation>%1 Knoten</translation>
    </message>
    <message>
        <source>Add %1</source>
        <translation>%1 hinzufügen</translation>
    </message>
    <message>
        <source>Delete %1</source>
        <translation>%1 löschen</translation>
    </message>
    <message>
        <source>Duplicate %1</source>
        <translation>%1 duplizieren</translation>
    </message>
    <message>
        <source>Rename &quot;%1&quot;</source>
        <translation>„%1“ umbenennen</translation>
    </message>
    <message>
        <source>Enable %1</source>
        <translation>%1 aktivieren</translation>
    </message>
    <message>
        <source>Disable %1</source>
        <translation>%1 deaktivieren</translation>
    </message>
    <message>
        <source>Rename Palette &quot;%1&quot;</source>
        <translation>Palette „%1“ umbenennen</translation>
    </message>
    <message>
        <source>Rename Colour &quot;%1&quot;</source>
        <translation>Farbe „%1“ umbenennen</translation>
    </message>
    <message>
        <source>Change Colour &quot;%1&quot;</source>
        <translation>Farbe „%1“ ändern</translation>
    </message>
    <message>
        <source>Change Frames</source>
        <translation>Bildbereich ändern</translation>
    </message>
    <message>
        <source>Change Frame Height</source>
        <translation>Bildhöhe ändern</translation>
    </message>
    <message>
        <source>Colour</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>Change %1</source>
        <translation>%1 ändern</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>Place</source>
        <translation>Ort</translation>
    </message>
    <message>
        <source>Ambient Colour</source>
        <translation>Umgebungsfarbe</translation>
    </message>
    <message>
        <source>Lights</source>
        <translation>Lichter</translation>
    </message>
    <message>
        <source>Add Light</source>
        <translation>Licht hinzufügen</translation>
    </message>
    <message>
        <source>Remove %1</source>
        <translation>%1 entfernen</translation>
    </message>
    <message>
        <source>Change Frame Rate</source>
        <translation>Bildrate ändern</translation>
    </message>
    <message>
        <source>Replace Drawings</source>
        <translation>Zeichnungen ersetzen</translation>
    </message>
    <message>
        <source>Change Origin</source>
        <translation>Herkunft ändern</translation>
    </message>
    <message>
        <source>Replace Palette &quot;%1&quot;</source>
        <translation>Palette „%1“ ersetzen</translation>
    </message>
    <message>
        <source>Add Palette &quot;%1&quot;</source>
        <translation>Palette „%1“ hinzufügen</translation>
    </message>
    <message>
        <source>Move %1</source>
        <translation>%1 verschieben</translation>
    </message>
</context>
<context>
    <name>MO_ElementModule</name>
    <message>
        <source>Drawing</source>
        <translation>Zeichnung</translation>
    </message>
</context>
<context>
    <name>MO_GlueModule</name>
    <message>
        <source>Glue</source>
        <translation>Durchleitung</translation>
    </message>
</context>
<context>
    <name>MO_GroupBorderModule</name>
    <message>
        <source>Group Entry</source>
        <translation>Gruppeneingang</translation>
    </message>
    <message>
        <source>Group Exit</source>
        <translation>Gruppenausgang</translation>
    </message>
</context>
<context>
    <name>MO_LightKindAttr</name>
    <message>
        <source>Directional</source>
        <translation>Gerichtet</translation>
    </message>
    <message>
        <source>Point</source>
        <translation>Punktlicht</translation>
    </message>
</context>
<context>
    <name>MO_Lighting</name>
    <message>
        <source>Light %1</source>
        <translation>Licht %1</translation>
    </message>
</context>
<context>
    <name>MO_Module</name>
    <message>
        <source>The element &lt;%1&gt; at line %2 is not a node of the kind &quot;%3&quot;</source>
        <translation>Das Element &lt;%1&gt; in Zeile %2 ist kein Knoten der Art „%3“</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not understood by this version of the program</source>
        <translation>„%1“ versteht diese Programmversion nicht</translation>
    </message>
</context>
<context>
    <name>MO_Port</name>
    <message>
        <source>A link cannot cross the border of a group; use a port of the group</source>
        <translation>Eine Verbindung kann die Grenze einer Gruppe nicht überschreiten; benutzen Sie einen Anschluss der Gruppe</translation>
    </message>
    <message>
        <source>&quot;%1&quot; already depends on &quot;%2&quot;; the link would close a circle</source>
        <translation>„%1“ hängt schon von „%2“ ab; die Verbindung würde einen Kreis schließen</translation>
    </message>
    <message>
        <source>A link leads from an output port to an input port</source>
        <translation>Eine Verbindung führt von einem Ausgang zu einem Eingang</translation>
    </message>
</context>
<context>
    <name>MO_Scene</name>
    <message>
        <source>&quot;%1&quot; has no output port %2</source>
        <translation>„%1“ hat keinen Ausgang %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has no input port %2</source>
        <translation>„%1“ hat keinen Eingang %2</translation>
    </message>
    <message>
        <source>Line %1: &lt;%2&gt; is not a scene</source>
        <translation>Zeile %1: &lt;%2&gt; ist keine Szene</translation>
    </message>
    <message>
        <source>&lt;%1&gt; is not understood by this version of the program</source>
        <translation>&lt;%1&gt; versteht diese Programmversion nicht</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not understood by this version of the program</source>
        <translation>„%1“ versteht diese Programmversion nicht</translation>
    </message>
    <message>
        <source>The scene was saved by a newer version of the program</source>
        <translation>Die Szene wurde mit einer neueren Programmversion gespeichert</translation>
    </message>
    <message>
        <source>The scene cannot have the frames that its file names; it has the frames %1 to %2</source>
        <translation>Die Szene kann die Bilder nicht haben, die ihre Datei nennt; sie hat die Bilder %1 bis %2</translation>
    </message>
    <message>
        <source>The height of the frame is not a positive number</source>
        <translation>Die Bildhöhe ist keine positive Zahl</translation>
    </message>
    <message>
        <source>The frame rate is not a number from %1 to %2; it stays as it was</source>
        <translation>Die Bildrate ist keine Zahl von %1 bis %2; sie bleibt, wie sie war</translation>
    </message>
</context>
<context>
    <name>MO_SceneCopy</name>
    <message>
        <source>the copy</source>
        <translation>die Kopie</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Opening...</source>
        <translation>Wird geöffnet …</translation>
    </message>
    <message>
        <source>Lights</source>
        <translation>Lichter</translation>
    </message>
    <message>
        <source>This frame cannot be shown:
%1</source>
        <translation>Dieses Bild lässt sich nicht zeigen:
%1</translation>
    </message>
    <message>
        <source>The scene is empty.
Drop drawings here, or add nodes in the node view.</source>
        <translation>Die Szene ist leer.
Ziehen Sie Zeichnungen hierher oder fügen Sie in der Knotenansicht Knoten hinzu.</translation>
    </message>
    <message>
        <source>Rendering...</source>
        <translation>Wird gerendert …</translation>
    </message>
    <message>
        <source>Quick preview</source>
        <translation>Schnelle Vorschau</translation>
    </message>
    <message>
        <source>%1 x %2</source>
        <translation>%1 × %2</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>%1[*] - Quarvel Studio</source>
        <translation>%1[*] – Quarvel Studio</translation>
    </message>
    <message>
        <source>Quarvel Studio[*]</source>
        <translation>Quarvel Studio[*]</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederherstellen</translation>
    </message>
    <message>
        <source>About Quarvel Studio</source>
        <translation>Über Quarvel Studio</translation>
    </message>
    <message>
        <source>&lt;h3&gt;Quarvel Studio %1&lt;/h3&gt;Volume for flat drawings: elevation, normal maps, light.</source>
        <translation>&lt;h3&gt;Quarvel Studio %1&lt;/h3&gt;Volumen für flache Zeichnungen: Höhe, Normal-Maps, Licht.</translation>
    </message>
    <message>
        <source>Copyright 2026 The Vallorin developers. Free software under the Apache License 2.0.</source>
        <translation>Copyright 2026 The Vallorin developers. Freie Software unter der Apache-Lizenz 2.0.</translation>
    </message>
    <message>
        <source>Unsaved Changes</source>
        <translation>Ungespeicherte Änderungen</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has changes that are not saved.</source>
        <translation>„%1“ hat ungespeicherte Änderungen.</translation>
    </message>
    <message>
        <source>Import Drawings</source>
        <translation>Zeichnungen importieren</translation>
    </message>
    <message>
        <source>Drawings (%1);;All files (*)</source>
        <translation>Zeichnungen (%1);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>The example is not installed beside the program.</source>
        <translation>Das Beispiel ist nicht neben dem Programm installiert.</translation>
    </message>
    <message>
        <source>%1 does not exist any more. Was it moved or renamed?</source>
        <translation>%1 gibt es nicht mehr. Wurde es verschoben oder umbenannt?</translation>
    </message>
    <message>
        <source>Save the Scene</source>
        <translation>Szene speichern</translation>
    </message>
    <message>
        <source>Scenes (*.scene)</source>
        <translation>Szenen (*.scene)</translation>
    </message>
    <message>
        <source>%1 exists already. Replace it?</source>
        <translation>%1 gibt es schon. Ersetzen?</translation>
    </message>
    <message>
        <source>The scene was not saved: %1</source>
        <translation>Die Szene wurde nicht gespeichert: %1</translation>
    </message>
    <message>
        <source>Recovery</source>
        <translation>Wiederherstellung</translation>
    </message>
    <message>
        <source>The application ended unexpectedly while &quot;%1&quot; had unsaved changes.</source>
        <translation>Das Programm wurde unerwartet beendet, während „%1“ ungespeicherte Änderungen hatte.</translation>
    </message>
    <message>
        <source>A copy of %1 is there. The scene was never saved.</source>
        <translation>Es gibt eine Kopie von %1. Die Szene wurde noch nie gespeichert.</translation>
    </message>
    <message>
        <source>A copy of %1 is there. The scene itself is in %2, as it was last saved.</source>
        <translation>Es gibt eine Kopie von %1. Die Szene selbst liegt in %2, wie sie zuletzt gespeichert wurde.</translation>
    </message>
    <message>
        <source>&amp;Recover</source>
        <translation>&amp;Wiederherstellen</translation>
    </message>
    <message>
        <source>&amp;Discard</source>
        <translation>&amp;Verwerfen</translation>
    </message>
    <message>
        <source>&amp;Later</source>
        <translation>&amp;Später</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be recovered: %2</source>
        <translation>„%1“ lässt sich nicht wiederherstellen: %2</translation>
    </message>
    <message>
        <source>Recovered &quot;%1&quot; as it was at %2. It is not saved yet.</source>
        <translation>„%1“ wurde mit dem Stand von %2 wiederhergestellt und ist noch nicht gespeichert.</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>&amp;New Scene</source>
        <translation>&amp;Neue Szene</translation>
    </message>
    <message>
        <source>Begins an empty scene</source>
        <translation>Beginnt eine leere Szene</translation>
    </message>
    <message>
        <source>&amp;Open Scene...</source>
        <translation>Szene ö&amp;ffnen …</translation>
    </message>
    <message>
        <source>Opens a scene that was saved before</source>
        <translation>Öffnet eine gespeicherte Szene</translation>
    </message>
    <message>
        <source>&amp;Import Drawings...</source>
        <translation>Zeichnungen &amp;importieren …</translation>
    </message>
    <message>
        <source>Ctrl+I</source>
        <translation>Ctrl+I</translation>
    </message>
    <message>
        <source>Makes a scene of SVG drawings, bitmaps or a Lottie animation</source>
        <translation>Macht eine Szene aus SVG-Zeichnungen, Bitmaps oder einer Lottie-Animation</translation>
    </message>
    <message>
        <source>Open E&amp;xample</source>
        <translation>B&amp;eispiel öffnen</translation>
    </message>
    <message>
        <source>Opens the example drawing</source>
        <translation>Öffnet die Beispielzeichnung</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Saves the scene</source>
        <translation>Speichert die Szene</translation>
    </message>
    <message>
        <source>Save &amp;As...</source>
        <translation>Speichern &amp;unter …</translation>
    </message>
    <message>
        <source>Ctrl+Shift+S</source>
        <translation>Ctrl+Shift+S</translation>
    </message>
    <message>
        <source>Saves the scene elsewhere</source>
        <translation>Speichert die Szene an einem anderen Ort</translation>
    </message>
    <message>
        <source>&amp;Export Frames...</source>
        <translation>Bilder e&amp;xportieren …</translation>
    </message>
    <message>
        <source>Ctrl+E</source>
        <translation>Ctrl+E</translation>
    </message>
    <message>
        <source>Renders frames into picture files</source>
        <translation>Rendert Bilder in Bilddateien</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>Ctrl+Q</source>
        <translation>Ctrl+Q</translation>
    </message>
    <message>
        <source>Closes the application</source>
        <translation>Beendet das Programm</translation>
    </message>
    <message>
        <source>Takes the last change back</source>
        <translation>Nimmt die letzte Änderung zurück</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>Deletes the selected nodes</source>
        <translation>Löscht die ausgewählten Knoten</translation>
    </message>
    <message>
        <source>Ctrl+D</source>
        <translation>Ctrl+D</translation>
    </message>
    <message>
        <source>Copies the selected nodes</source>
        <translation>Kopiert die ausgewählten Knoten</translation>
    </message>
    <message>
        <source>&amp;Drawing</source>
        <translation>&amp;Zeichnung</translation>
    </message>
    <message>
        <source>Shows the drawing</source>
        <translation>Zeigt die Zeichnung</translation>
    </message>
    <message>
        <source>&amp;Elevation</source>
        <translation>&amp;Höhe</translation>
    </message>
    <message>
        <source>Shows how high the surface is: white is highest</source>
        <translation>Zeigt, wie hoch die Oberfläche ist: Weiß ist am höchsten</translation>
    </message>
    <message>
        <source>&amp;Normals</source>
        <translation>&amp;Normalen</translation>
    </message>
    <message>
        <source>Shows the normal map</source>
        <translation>Zeigt die Normal-Map</translation>
    </message>
    <message>
        <source>&amp;Lit</source>
        <translation>Be&amp;leuchtet</translation>
    </message>
    <message>
        <source>&amp;Fit</source>
        <translation>&amp;Einpassen</translation>
    </message>
    <message>
        <source>Ctrl+0</source>
        <translation>Ctrl+0</translation>
    </message>
    <message>
        <source>Shows the whole picture</source>
        <translation>Zeigt das ganze Bild</translation>
    </message>
    <message>
        <source>&amp;100 %</source>
        <translation>&amp;100 %</translation>
    </message>
    <message>
        <source>Ctrl+1</source>
        <translation>Ctrl+1</translation>
    </message>
    <message>
        <source>Shows a pixel as a pixel</source>
        <translation>Zeigt jedes Pixel in seiner wahren Größe</translation>
    </message>
    <message>
        <source>Zoom &amp;In</source>
        <translation>&amp;Vergrößern</translation>
    </message>
    <message>
        <source>Shows more detail</source>
        <translation>Zeigt mehr Details</translation>
    </message>
    <message>
        <source>Zoom &amp;Out</source>
        <translation>Ver&amp;kleinern</translation>
    </message>
    <message>
        <source>Shows more at once</source>
        <translation>Zeigt einen größeren Ausschnitt</translation>
    </message>
    <message>
        <source>Show &amp;Selected Node</source>
        <translation>&amp;Ausgewählten Knoten zeigen</translation>
    </message>
    <message>
        <source>Shows the picture of the node that is selected, not the scene&apos;s output</source>
        <translation>Zeigt das Bild des ausgewählten Knotens statt der Ausgabe der Szene</translation>
    </message>
    <message>
        <source>%1 pixels</source>
        <translation>%1 Pixel</translation>
    </message>
    <message>
        <source>The preview&apos;s longer side</source>
        <translation>Die längere Seite der Vorschau</translation>
    </message>
    <message>
        <source>As the &amp;Desktop</source>
        <translation>Wie der &amp;Desktop</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>&amp;Hell</translation>
    </message>
    <message>
        <source>D&amp;ark</source>
        <translation>&amp;Dunkel</translation>
    </message>
    <message>
        <source>The colours of the window</source>
        <translation>Die Farben des Fensters</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Recent</source>
        <translation>&amp;Zuletzt geöffnet</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Panels</source>
        <translation>&amp;Bedienfelder</translation>
    </message>
    <message>
        <source>&amp;Appearance</source>
        <translation>Erscheinungsb&amp;ild</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;About Quarvel Studio</source>
        <translation>Ü&amp;ber Quarvel Studio</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>Werkzeuge</translation>
    </message>
    <message>
        <source>&amp;Clear</source>
        <translation>&amp;Leeren</translation>
    </message>
    <message>
        <source>The Scene Changed</source>
        <translation>Die Szene hat sich geändert</translation>
    </message>
    <message>
        <source>Another program saved &quot;%1&quot; after it was opened here.</source>
        <translation>Ein anderes Programm hat „%1“ gespeichert, nachdem es hier geöffnet wurde.</translation>
    </message>
    <message>
        <source>Replace that scene by this one? To keep both, cancel and save this one as another.</source>
        <translation>Jene Szene durch diese ersetzen? Um beide zu behalten, brechen Sie ab und speichern Sie diese unter anderem Namen.</translation>
    </message>
    <message>
        <source>&amp;Replace</source>
        <translation>&amp;Ersetzen</translation>
    </message>
    <message>
        <source>The pixel under the mouse: its place, what the view shows there, and the object</source>
        <translation>Der Bildpunkt unter der Maus: sein Ort, was die Ansicht dort zeigt, und das Objekt</translation>
    </message>
    <message>
        <source>Shows the drawing in the light; drag the lights by their handles</source>
        <translation>Zeigt die Zeichnung im Licht; die Lichter werden an ihren Griffen gezogen</translation>
    </message>
    <message>
        <source>&amp;Object</source>
        <translation>&amp;Objekt</translation>
    </message>
    <message>
        <source>Objects</source>
        <translation>Objekte</translation>
    </message>
    <message>
        <source>&amp;Before and After</source>
        <translation>&amp;Vorher und nachher</translation>
    </message>
    <message>
        <source>Ctrl+B</source>
        <translation>Ctrl+B</translation>
    </message>
    <message>
        <source>&amp;All</source>
        <translation>&amp;Alle</translation>
    </message>
    <message>
        <source>&amp;Red</source>
        <translation>&amp;Rot</translation>
    </message>
    <message>
        <source>&amp;Green</source>
        <translation>&amp;Grün</translation>
    </message>
    <message>
        <source>&amp;Blue</source>
        <translation>&amp;Blau</translation>
    </message>
    <message>
        <source>&amp;Opacity</source>
        <translation>&amp;Deckkraft</translation>
    </message>
    <message>
        <source>Shows one channel of the picture as grey, or all of them</source>
        <translation>Zeigt einen einzelnen Kanal des Bildes in Grau, oder alle</translation>
    </message>
    <message>
        <source>Ra&amp;w Channels in the Status Bar</source>
        <translation>Roh&amp;werte der Kanäle in der Statusleiste</translation>
    </message>
    <message>
        <source>Tells what the node delivers for the pixel under the mouse, channel by channel</source>
        <translation>Nennt Kanal für Kanal, was der Knoten für den Bildpunkt unter der Maus liefert</translation>
    </message>
    <message>
        <source>&amp;Channel</source>
        <translation>&amp;Kanal</translation>
    </message>
    <message>
        <source>Bac&amp;kground</source>
        <translation>Hinter&amp;grund</translation>
    </message>
    <message>
        <source>&amp;Checkerboard</source>
        <translation>&amp;Schachbrett</translation>
    </message>
    <message>
        <source>C&amp;olour...</source>
        <translation>&amp;Farbe …</translation>
    </message>
    <message>
        <source>&amp;Picture...</source>
        <translation>&amp;Bild …</translation>
    </message>
    <message>
        <source>Colour behind the Picture</source>
        <translation>Farbe hinter dem Bild</translation>
    </message>
    <message>
        <source>Picture behind the Picture</source>
        <translation>Bild hinter dem Bild</translation>
    </message>
    <message>
        <source>Pictures (*.png *.jpg *.jpeg *.bmp *.webp)</source>
        <translation>Bilder (*.png *.jpg *.jpeg *.bmp *.webp)</translation>
    </message>
    <message>
        <source>%1 cannot be shown behind the picture: %2</source>
        <translation>%1 lässt sich nicht hinter dem Bild zeigen: %2</translation>
    </message>
    <message>
        <source>Opening</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Exporting</source>
        <translation>Export</translation>
    </message>
    <message>
        <source>Stops the export; files that are complete stay</source>
        <translation>Hält den Export an; vollständige Dateien bleiben</translation>
    </message>
    <message>
        <source>Re&amp;peat Last Export</source>
        <translation>Letzten Export &amp;wiederholen</translation>
    </message>
    <message>
        <source>Ctrl+Shift+E</source>
        <translation>Ctrl+Shift+E</translation>
    </message>
    <message>
        <source>Exports as before, into the same files</source>
        <translation>Exportiert wie zuvor, in dieselben Dateien</translation>
    </message>
    <message>
        <source>Click the colour in the picture; Escape gives up</source>
        <translation>Im Bild auf die Farbe klicken; Escape bricht ab</translation>
    </message>
    <message>
        <source>Rese&amp;t Layout</source>
        <translation>Anordnung &amp;zurücksetzen</translation>
    </message>
    <message>
        <source>Puts all panels back where they were at first</source>
        <translation>Bringt alle Bedienfelder wieder dorthin, wo sie anfangs waren</translation>
    </message>
    <message>
        <source>The first steps, and all keys</source>
        <translation>Die ersten Schritte und alle Tasten</translation>
    </message>
    <message>
        <source>Dup&amp;licate</source>
        <translation>&amp;Duplizieren</translation>
    </message>
    <message>
        <source>Preview Si&amp;ze</source>
        <translation>Vorschau&amp;größe</translation>
    </message>
    <message>
        <source>Add Drawings</source>
        <translation>Zeichnungen hinzufügen</translation>
    </message>
    <message>
        <source>The scene has several drawings; select one of them in the elements first.</source>
        <translation>Die Szene hat mehrere Zeichnungen; wählen Sie zuerst eine davon in den Elementen aus.</translation>
    </message>
    <message>
        <source>Replace %1</source>
        <translation>%1 ersetzen</translation>
    </message>
    <message>
        <source>Add Dra&amp;wings...</source>
        <translation>Zeichnungen &amp;hinzufügen …</translation>
    </message>
    <message>
        <source>Ctrl+Shift+I</source>
        <translation>Ctrl+Shift+I</translation>
    </message>
    <message>
        <source>Puts the drawings of other files on top of those of the scene</source>
        <translation>Legt die Zeichnungen anderer Dateien über die der Szene</translation>
    </message>
    <message>
        <source>Rep&amp;lace Drawing...</source>
        <translation>Zeichnung e&amp;rsetzen …</translation>
    </message>
    <message>
        <source>Reload &amp;Drawings</source>
        <translation>Zeichnungen neu &amp;laden</translation>
    </message>
    <message>
        <source>F5</source>
        <translation>F5</translation>
    </message>
    <message>
        <source>Reads the drawings of the scene again; files that change are read by themselves</source>
        <translation>Liest die Zeichnungen der Szene noch einmal; Dateien, die sich ändern, werden von selbst gelesen</translation>
    </message>
    <message>
        <source>Share</source>
        <translation>Teilen</translation>
    </message>
    <message>
        <source>Pages (*.html)</source>
        <translation>Seiten (*.html)</translation>
    </message>
    <message>
        <source>Sharing</source>
        <translation>Wird geteilt</translation>
    </message>
    <message>
        <source>Gives up the page</source>
        <translation>Bricht das Schreiben der Seite ab</translation>
    </message>
    <message>
        <source>S&amp;hare...</source>
        <translation>&amp;Teilen …</translation>
    </message>
    <message>
        <source>Writes one page for browsers that plays the drawing in a light which follows the pointer</source>
        <translation>Schreibt eine Seite für Browser, die die Zeichnung in einem Licht abspielt, das dem Zeiger folgt</translation>
    </message>
    <message>
        <source>Do you want to save them? Discarded changes cannot be restored.</source>
        <translation>Möchten Sie sie speichern? Verworfene Änderungen lassen sich nicht wiederherstellen.</translation>
    </message>
    <message>
        <source>The scene does not say which file its drawings came from.</source>
        <translation>Die Szene gibt nicht an, aus welcher Datei ihre Zeichnungen stammen.</translation>
    </message>
    <message>
        <source>Cancels opening; what is open now stays</source>
        <translation>Bricht das Öffnen ab; was jetzt offen ist, bleibt</translation>
    </message>
    <message>
        <source>Replaces the selected drawing by another file; the settings of its objects are kept</source>
        <translation>Ersetzt die gewählte Zeichnung durch eine andere Datei; die Einstellungen ihrer Objekte bleiben erhalten</translation>
    </message>
    <message>
        <source>Repeats the change that was undone</source>
        <translation>Stellt die zurückgenommene Änderung wieder her</translation>
    </message>
    <message>
        <source>Splits the view: on the left of a border that can be dragged, the flat drawing; hold B to see the flat drawing alone</source>
        <translation>Teilt die Ansicht: links einer verschiebbaren Grenze die flache Zeichnung; solange B gedrückt ist, nur sie</translation>
    </message>
    <message>
        <source>&amp;The Drawing&apos;s Own</source>
        <translation>&amp;Die der Zeichnung</translation>
    </message>
    <message>
        <source>Shows sprites pixel by pixel, as they are exported</source>
        <translation>Zeigt Sprites Pixel für Pixel, wie sie exportiert werden</translation>
    </message>
    <message>
        <source>As &amp;Suits the Drawing</source>
        <translation>Wie es zur Zeichnung &amp;passt</translation>
    </message>
    <message>
        <source>Small sprites pixel by pixel, all others smooth</source>
        <translation>Kleine Sprites Pixel für Pixel, alle anderen glatt</translation>
    </message>
    <message>
        <source>Nodes are duplicated in the graph: click one there first</source>
        <translation>Knoten werden im Graphen dupliziert: zuerst dort einen anklicken</translation>
    </message>
</context>
<context>
    <name>MessageBar</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Puts this message away</source>
        <translation>Blendet diese Meldung aus</translation>
    </message>
    <message numerus="yes">
        <source>... and %n more</source>
        <translation>
            <numerusform>… und %n weitere</numerusform>
            <numerusform>… und %n weitere</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>NodeActions</name>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>Duplizieren</translation>
    </message>
    <message>
        <source>Enabled</source>
        <translation>Aktiviert</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
    <message>
        <source>Look Inside</source>
        <translation>Hineinsehen</translation>
    </message>
    <message>
        <source>Leave Group</source>
        <translation>Gruppe verlassen</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Alles auswählen</translation>
    </message>
    <message>
        <source>Show Everything</source>
        <translation>Alles zeigen</translation>
    </message>
    <message>
        <source>Cut Link</source>
        <translation>Verbindung trennen</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>Connect To</source>
        <translation>Verbinden mit</translation>
    </message>
    <message>
        <source>Disconnect &quot;%1&quot;</source>
        <translation>„%1“ trennen</translation>
    </message>
    <message>
        <source>Ports of &quot;%1&quot;</source>
        <translation>Anschlüsse von „%1“</translation>
    </message>
    <message>
        <source>Add Input</source>
        <translation>Eingang hinzufügen</translation>
    </message>
    <message>
        <source>Add Output</source>
        <translation>Ausgang hinzufügen</translation>
    </message>
    <message>
        <source>Remove Last Input</source>
        <translation>Letzten Eingang entfernen</translation>
    </message>
    <message>
        <source>Remove Last Output</source>
        <translation>Letzten Ausgang entfernen</translation>
    </message>
    <message>
        <source>Arrange</source>
        <translation>Anordnen</translation>
    </message>
    <message>
        <source>Disconnect</source>
        <translation>Trennen</translation>
    </message>
</context>
<context>
    <name>NodeItem</name>
    <message>
        <source>Disabled: passes on its first input</source>
        <translation>Deaktiviert: gibt den ersten Eingang weiter</translation>
    </message>
    <message>
        <source>Double click to look inside</source>
        <translation>Doppelklick zum Hineinsehen</translation>
    </message>
    <message>
        <source>%1 (off)</source>
        <translation>%1 (aus)</translation>
    </message>
</context>
<context>
    <name>NodePanel</name>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>Add a node; it is linked to the selected one</source>
        <translation>Knoten hinzufügen; er wird mit dem ausgewählten verbunden</translation>
    </message>
    <message>
        <source>Fit</source>
        <translation>Einpassen</translation>
    </message>
    <message>
        <source>Scene</source>
        <translation>Szene</translation>
    </message>
    <message>
        <source>Show &quot;%1&quot;</source>
        <translation>„%1“ zeigen</translation>
    </message>
</context>
<context>
    <name>NodeView</name>
    <message>
        <source>Node view</source>
        <translation>Knotenansicht</translation>
    </message>
    <message>
        <source>Nothing here yet. Add a node with the Add button, or drop a drawing on the window.</source>
        <translation>Hier ist noch nichts. Fügen Sie über „Hinzufügen“ einen Knoten hinzu oder ziehen Sie eine Zeichnung ins Fenster.</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Input %1</source>
        <translation>Eingang %1</translation>
    </message>
    <message>
        <source>Output %1</source>
        <translation>Ausgang %1</translation>
    </message>
</context>
<context>
    <name>ObjectActions</name>
    <message>
        <source>Carve</source>
        <translation>Vertiefen</translation>
    </message>
    <message>
        <source>Lets the selected objects sink in instead of rising</source>
        <translation>Lässt die ausgewählten Objekte einsinken statt aufragen</translation>
    </message>
    <message>
        <source>Cut Out</source>
        <translation>Ausschneiden</translation>
    </message>
    <message>
        <source>Hide</source>
        <translation>Ausblenden</translation>
    </message>
    <message>
        <source>Hides the selected objects</source>
        <translation>Blendet die ausgewählten Objekte aus</translation>
    </message>
    <message>
        <source>Solo</source>
        <translation>Allein</translation>
    </message>
    <message>
        <source>Shows the selected objects alone</source>
        <translation>Zeigt die ausgewählten Objekte allein</translation>
    </message>
    <message>
        <source>Copy Values</source>
        <translation>Werte kopieren</translation>
    </message>
    <message>
        <source>Paste Values</source>
        <translation>Werte einfügen</translation>
    </message>
    <message>
        <source>Gives the copied values to the selected objects</source>
        <translation>Gibt den ausgewählten Objekten die kopierten Werte</translation>
    </message>
    <message>
        <source>Reset Values</source>
        <translation>Werte zurücksetzen</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>Paste Values to %1</source>
        <translation>Werte in %1 einfügen</translation>
    </message>
    <message>
        <source>Reset Values of %1</source>
        <translation>Werte von %1 zurücksetzen</translation>
    </message>
    <message>
        <source>Presets</source>
        <translation>Vorlagen</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Zurücksetzen</translation>
    </message>
    <message>
        <source>Save Values as Preset...</source>
        <translation>Werte als Vorlage sichern …</translation>
    </message>
    <message>
        <source>Remove Preset</source>
        <translation>Vorlage entfernen</translation>
    </message>
    <message>
        <source>%2 for %1</source>
        <comment>a preset for an object</comment>
        <translation>%2 für %1</translation>
    </message>
    <message>
        <source>Save Values as Preset</source>
        <translation>Werte als Vorlage sichern</translation>
    </message>
    <message>
        <source>The preset&apos;s name:</source>
        <translation>Name der Vorlage:</translation>
    </message>
    <message>
        <source>Gives the selected objects the values that were chosen for them when the drawing was opened</source>
        <translation>Gibt den ausgewählten Objekten die Werte, die beim Öffnen der Zeichnung für sie gewählt wurden</translation>
    </message>
    <message>
        <source>Turns the selected objects into holes: whatever lies below them is removed</source>
        <translation>Macht die ausgewählten Objekte zu Löchern: Was darunter liegt, wird entfernt</translation>
    </message>
    <message>
        <source>Copies bevel, elevation, smoothness, tilt and rim of the selected object</source>
        <translation>Kopiert Kante, Höhe, Rundung, Neigung und Randkante des ausgewählten Objekts</translation>
    </message>
    <message>
        <source>Reset Rim of %1</source>
        <translation>Randkante von %1 zurücksetzen</translation>
    </message>
    <message>
        <source>Join</source>
        <translation>Verbinden</translation>
    </message>
    <message>
        <source>Makes one object of the selected ones, with the values of the one selected last</source>
        <translation>Macht aus den ausgewählten Objekten eins, mit den Werten des zuletzt ausgewählten</translation>
    </message>
    <message>
        <source>Separate</source>
        <translation>Trennen</translation>
    </message>
    <message>
        <source>Makes objects of their own of the drawings that were joined into one</source>
        <translation>Macht aus Zeichnungen, die zu einem Objekt verbunden wurden, wieder eigene Objekte</translation>
    </message>
</context>
<context>
    <name>ObjectBar</name>
    <message>
        <source>Selected object</source>
        <translation>Ausgewähltes Objekt</translation>
    </message>
    <message>
        <source>Presets, copy, paste and reset</source>
        <translation>Vorlagen, Kopieren, Einfügen und Zurücksetzen</translation>
    </message>
    <message>
        <source>More</source>
        <translation>Mehr</translation>
    </message>
</context>
<context>
    <name>ObjectDefinition</name>
    <message>
        <source>Object-Definition</source>
        <translation>Object-Definition</translation>
    </message>
</context>
<context>
    <name>ObjectTexts</name>
    <message>
        <source>Bevel</source>
        <translation>Kante</translation>
    </message>
    <message>
        <source>Elevation</source>
        <translation>Höhe</translation>
    </message>
    <message>
        <source>Smoothness</source>
        <translation>Rundung</translation>
    </message>
    <message>
        <source>How far the rounding reaches in from the outline; the picture is 720 units wide</source>
        <translation>Wie weit die Abrundung vom Umriss nach innen reicht; das Bild ist 720 Einheiten breit</translation>
    </message>
    <message>
        <source>How high the object rises; 1 is 37.5 units of a picture 720 wide, negative values sink in</source>
        <translation>Wie hoch sich das Objekt erhebt; 1 sind 37,5 Einheiten eines 720 breiten Bildes, negative Werte sinken ein</translation>
    </message>
    <message numerus="yes">
        <source>%n objects</source>
        <translation>
            <numerusform>%n Objekt</numerusform>
            <numerusform>%n Objekte</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <comment>Bevel of Head</comment>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>Carve %1</source>
        <translation>%1 vertiefen</translation>
    </message>
    <message>
        <source>Raise %1</source>
        <translation>%1 anheben</translation>
    </message>
    <message>
        <source>Cut out %1</source>
        <translation>%1 ausschneiden</translation>
    </message>
    <message>
        <source>Make %1 an object</source>
        <translation>%1 wieder zum Objekt machen</translation>
    </message>
    <message>
        <source>Hide %1</source>
        <translation>%1 ausblenden</translation>
    </message>
    <message>
        <source>Show %1</source>
        <translation>%1 zeigen</translation>
    </message>
    <message>
        <source>Show all objects</source>
        <translation>Alle Objekte zeigen</translation>
    </message>
    <message>
        <source>Show %1 alone</source>
        <translation>%1 allein zeigen</translation>
    </message>
    <message>
        <source>Soft Pillow</source>
        <translation>Weiches Kissen</translation>
    </message>
    <message>
        <source>Hard Chamfer</source>
        <translation>Harte Fase</translation>
    </message>
    <message>
        <source>Coin</source>
        <translation>Münze</translation>
    </message>
    <message>
        <source>Paper</source>
        <translation>Papier</translation>
    </message>
    <message>
        <source>Balloon</source>
        <translation>Ballon</translation>
    </message>
    <message>
        <source>Tilt</source>
        <translation>Neigung</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <comment>a tilt to the right and upwards, in degrees</comment>
        <translation>%1; %2</translation>
    </message>
    <message>
        <source>How round the profile is: 1 follows the bevel, more is fuller, less is more pointed</source>
        <translation>Wie rund das Profil ist: 1 folgt der Kante, mehr ist voller, weniger ist spitzer</translation>
    </message>
    <message>
        <source>Rim</source>
        <comment>a second, narrow bevel</comment>
        <translation>Randkante</translation>
    </message>
    <message>
        <source>Tilt right</source>
        <translation>Neigung rechts</translation>
    </message>
    <message>
        <source>Tilt up</source>
        <translation>Neigung oben</translation>
    </message>
    <message>
        <source>The width of a second, narrow bevel at the outline, like the edge of a coin; the picture is 720 units wide, 0 is no rim</source>
        <translation>Die Breite einer zweiten, schmalen Kante am Umriss, wie der Rand einer Münze; das Bild ist 720 Einheiten breit, 0 ist keine</translation>
    </message>
    <message>
        <source>How many degrees the object is turned to the right; negative values turn it to the left</source>
        <translation>Um wie viel Grad das Objekt nach rechts gedreht ist; negative Werte drehen es nach links</translation>
    </message>
    <message>
        <source>How many degrees the object is turned upwards; negative values turn it down</source>
        <translation>Um wie viel Grad das Objekt nach oben gedreht ist; negative Werte drehen es nach unten</translation>
    </message>
    <message>
        <source>Join %1</source>
        <translation>%1 verbinden</translation>
    </message>
    <message>
        <source>Separate %1</source>
        <translation>%1 trennen</translation>
    </message>
</context>
<context>
    <name>ObjectsModel</name>
    <message>
        <source>%1: shown when the box is ticked</source>
        <translation>%1: zu sehen, wenn das Kästchen angekreuzt ist</translation>
    </message>
    <message>
        <source>cut</source>
        <translation>Loch</translation>
    </message>
    <message>
        <source>Object</source>
        <translation>Objekt</translation>
    </message>
    <message>
        <source>No.</source>
        <translation>Nr.</translation>
    </message>
    <message>
        <source>The object; its box shows and hides it</source>
        <translation>Das Objekt; sein Kästchen zeigt und verbirgt es</translation>
    </message>
    <message>
        <source>The object&apos;s number; drawings of the same number are one object</source>
        <translation>Die Nummer des Objekts; Zeichnungen gleicher Nummer sind ein Objekt</translation>
    </message>
    <message>
        <source>A cut-out: whatever lies below it is removed</source>
        <translation>Ein Ausschnitt: Was darunter liegt, wird entfernt</translation>
    </message>
    <message>
        <source>Rim</source>
        <comment>the title of a narrow column</comment>
        <translation>Rand</translation>
    </message>
    <message>
        <source>Tilt →</source>
        <comment>the title of a narrow column: a tilt to the right</comment>
        <translation>Neig. →</translation>
    </message>
    <message>
        <source>Tilt ↑</source>
        <comment>the title of a narrow column: a tilt upwards</comment>
        <translation>Neig. ↑</translation>
    </message>
</context>
<context>
    <name>ObjectsView</name>
    <message>
        <source>Search objects</source>
        <translation>Objekte suchen</translation>
    </message>
    <message>
        <source>Objects</source>
        <translation>Objekte</translation>
    </message>
    <message>
        <source>Shows only the objects whose names hold this text</source>
        <translation>Zeigt nur die Objekte, deren Namen diesen Text enthalten</translation>
    </message>
</context>
<context>
    <name>PLUG_EditorPanel</name>
    <message>
        <source>No node is selected</source>
        <translation>Kein Knoten ausgewählt</translation>
    </message>
</context>
<context>
    <name>PageShare</name>
    <message>
        <source>A page lights normals, and this scene shows none.</source>
        <translation>Eine Seite beleuchtet Normalen, und diese Szene zeigt keine.</translation>
    </message>
    <message>
        <source>the page</source>
        <translation>die Seite</translation>
    </message>
    <message>
        <source>close what else is open</source>
        <translation>schließen Sie, was sonst geöffnet ist</translation>
    </message>
    <message>
        <source>Stopped; nothing was written.</source>
        <translation>Angehalten; nichts wurde geschrieben.</translation>
    </message>
    <message>
        <source>The page was not written: %1</source>
        <translation>Die Seite wurde nicht geschrieben: %1</translation>
    </message>
    <message>
        <source>%1 was written. The page works in any browser and needs no other file.</source>
        <translation>%1 wurde geschrieben. Die Seite läuft in jedem Browser und braucht keine andere Datei.</translation>
    </message>
</context>
<context>
    <name>PaletteView</name>
    <message>
        <source>Change Colour…</source>
        <translation>Farbe ändern …</translation>
    </message>
    <message>
        <source>Palettes</source>
        <translation>Paletten</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Colour</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>Choose another value for the selected colour</source>
        <translation>Einen anderen Wert für die ausgewählte Farbe wählen</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a colour; write it as #RRGGBB or #RRGGBBAA</source>
        <translation>„%1“ ist keine Farbe; schreiben Sie sie als #RRGGBB oder #RRGGBBAA</translation>
    </message>
    <message>
        <source>Colour &quot;%1&quot;</source>
        <translation>Farbe „%1“</translation>
    </message>
    <message>
        <source>Stands for pixels of a bitmap, which keep their own colours</source>
        <translation>Steht für Pixel eines Bitmaps; sie behalten ihre eigenen Farben</translation>
    </message>
</context>
<context>
    <name>PixelReadOut</name>
    <message>
        <source>nothing</source>
        <translation>nichts</translation>
    </message>
    <message>
        <source>%1   red %2  green %3  blue %4</source>
        <translation>%1   Rot %2  Grün %3  Blau %4</translation>
    </message>
    <message>
        <source>  opacity %1 %</source>
        <translation>  Deckkraft %1 %</translation>
    </message>
    <message>
        <source>elevation 0</source>
        <translation>Höhe 0</translation>
    </message>
    <message>
        <source>elevation %1 of %2 units</source>
        <translation>Höhe %1 von %2 Einheiten</translation>
    </message>
    <message>
        <source>normal %1 %2 %3   tilt %4°</source>
        <translation>Normale %1 %2 %3   Neigung %4°</translation>
    </message>
    <message>
        <source>%1, %2    R %3  G %4  B %5  A %6</source>
        <translation>%1, %2    R %3  G %4  B %5  A %6</translation>
    </message>
    <message>
        <source>    normal %1 %2 %3</source>
        <translation>    Normale %1 %2 %3</translation>
    </message>
    <message>
        <source>    elevation %1</source>
        <translation>    Höhe %1</translation>
    </message>
</context>
<context>
    <name>PropertiesView</name>
    <message>
        <source>Select a node to see its properties.</source>
        <translation>Wählen Sie einen Knoten aus, um seine Eigenschaften zu sehen.</translation>
    </message>
    <message>
        <source>Enabled</source>
        <translation>Aktiviert</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>The node&apos;s name; no two nodes of a scene have the same</source>
        <translation>Der Name des Knotens; er kommt in einer Szene nur einmal vor</translation>
    </message>
    <message>
        <source>A node that is not enabled passes on its first input</source>
        <translation>Ein deaktivierter Knoten gibt seinen ersten Eingang weiter</translation>
    </message>
</context>
<context>
    <name>RD_SoftRenderer</name>
    <message>
        <source>more than %1 nodes follow each other in the graph</source>
        <translation>mehr als %1 Knoten folgen im Graphen aufeinander</translation>
    </message>
    <message>
        <source>the drawings are reached on too many paths through the graph</source>
        <translation>die Zeichnungen sind auf zu vielen Wegen durch den Graphen erreichbar</translation>
    </message>
</context>
<context>
    <name>RenderService</name>
    <message>
        <source>There is not enough memory for this picture; choose a smaller preview.</source>
        <translation>Der Speicher reicht für dieses Bild nicht; wählen Sie eine kleinere Vorschau.</translation>
    </message>
</context>
<context>
    <name>SIO_Drawing</name>
    <message>
        <source>a drawing with more than %1 shapes</source>
        <translation>eine Zeichnung mit mehr als %1 Formen</translation>
    </message>
    <message>
        <source>the colour is not an identifier of 16 hexadecimal digits</source>
        <translation>die Farbe ist keine Kennung aus 16 hexadezimalen Ziffern</translation>
    </message>
    <message>
        <source>the opacity is not a number</source>
        <translation>die Deckkraft ist keine Zahl</translation>
    </message>
    <message>
        <source>the shape has no path</source>
        <translation>die Form hat keinen Pfad</translation>
    </message>
    <message>
        <source>the fill rule is neither &quot;evenodd&quot; nor &quot;nonzero&quot;</source>
        <translation>die Füllregel ist weder „evenodd“ noch „nonzero“</translation>
    </message>
    <message>
        <source>the points are not a path</source>
        <translation>die Punkte sind kein Pfad</translation>
    </message>
    <message>
        <source>the picture is damaged or too large</source>
        <translation>das Bild ist beschädigt oder zu groß</translation>
    </message>
    <message>
        <source>the drawing&apos;s pictures are too large</source>
        <translation>die Bilder der Zeichnung sind zu groß</translation>
    </message>
    <message>
        <source>&lt;%1&gt; is not a drawing</source>
        <translation>&lt;%1&gt; ist keine Zeichnung</translation>
    </message>
    <message>
        <source>the scene has no palette &quot;%1&quot;</source>
        <translation>die Szene hat keine Palette „%1“</translation>
    </message>
    <message>
        <source>it has more than %1 shapes</source>
        <translation>sie hat mehr als %1 Formen</translation>
    </message>
    <message>
        <source>an opacity is not a number</source>
        <translation>eine Deckkraft ist keine Zahl</translation>
    </message>
    <message>
        <source>a path has a point that is not a number or too far away</source>
        <translation>ein Pfad hat einen Punkt, der keine Zahl ist oder zu weit entfernt liegt</translation>
    </message>
    <message>
        <source>a picture is too large</source>
        <translation>ein Bild ist zu groß</translation>
    </message>
    <message>
        <source>its file would be larger than %1 MiB</source>
        <translation>ihre Datei wäre größer als %1 MiB</translation>
    </message>
    <message>
        <source>the drawing &quot;%1&quot; cannot be saved: %2</source>
        <translation>die Zeichnung „%1“ lässt sich nicht speichern: %2</translation>
    </message>
</context>
<context>
    <name>SIO_FileSystem</name>
    <message>
        <source>it is a folder</source>
        <translation>es ist ein Ordner</translation>
    </message>
    <message>
        <source>cannot make the folder &quot;%1&quot;: %2</source>
        <translation>der Ordner „%1“ lässt sich nicht anlegen: %2</translation>
    </message>
    <message>
        <source>cannot write &quot;%1&quot;: %2</source>
        <translation>„%1“ lässt sich nicht schreiben: %2</translation>
    </message>
    <message>
        <source>cannot put &quot;%1&quot; in place: %2</source>
        <translation>„%1“ lässt sich nicht an seinen Platz bringen: %2</translation>
    </message>
    <message>
        <source>%1; close the programs that have it open</source>
        <translation>%1; schließen Sie die Programme, die sie geöffnet haben</translation>
    </message>
    <message>
        <source>cannot remove &quot;%1&quot;: %2</source>
        <translation>„%1“ lässt sich nicht entfernen: %2</translation>
    </message>
    <message>
        <source>cannot remove the folder &quot;%1&quot;: %2</source>
        <translation>der Ordner „%1“ lässt sich nicht entfernen: %2</translation>
    </message>
    <message>
        <source>the disk is full; free some space and try again</source>
        <translation>die Platte ist voll; schaffen Sie Platz und versuchen Sie es noch einmal</translation>
    </message>
</context>
<context>
    <name>SIO_FolderLock</name>
    <message>
        <source>the scene &quot;%1&quot; is being saved by another program; try again later</source>
        <translation>die Szene „%1“ wird gerade von einem anderen Programm gespeichert; versuchen Sie es später noch einmal</translation>
    </message>
    <message>
        <source>files may not be made in &quot;%1&quot;; permit it or name another place</source>
        <translation>in „%1“ dürfen keine Dateien angelegt werden; erlauben Sie es oder nennen Sie einen anderen Ort</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a plain file; remove it</source>
        <translation>„%1“ ist keine gewöhnliche Datei; entfernen Sie es</translation>
    </message>
    <message>
        <source>cannot write in &quot;%1&quot;; see whether the disk is full</source>
        <translation>in „%1“ lässt sich nicht schreiben; sehen Sie nach, ob der Datenträger voll ist</translation>
    </message>
</context>
<context>
    <name>SIO_FolderReader</name>
    <message>
        <source>&quot;%1&quot; leads out of the scene&apos;s folder</source>
        <translation>„%1“ führt aus dem Szenenordner hinaus</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is missing</source>
        <translation>„%1“ fehlt</translation>
    </message>
</context>
<context>
    <name>SIO_Index</name>
    <message>
        <source>the palette has no identifier of 16 hexadecimal digits</source>
        <translation>die Palette hat keine Kennung aus 16 hexadezimalen Ziffern</translation>
    </message>
    <message>
        <source>&quot;%1&quot; comes twice</source>
        <translation>„%1“ kommt zweimal vor</translation>
    </message>
    <message>
        <source>the names of folders and files have no slash</source>
        <translation>Namen von Ordnern und Dateien haben keinen Schrägstrich</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a drawing&apos;s file, whose name ends in .kvr</source>
        <translation>„%1“ ist keine Zeichnungsdatei; deren Name endet auf .kvr</translation>
    </message>
    <message>
        <source>the file &quot;%1&quot; comes twice</source>
        <translation>die Datei „%1“ kommt zweimal vor</translation>
    </message>
    <message>
        <source>a second scene stands in one file</source>
        <translation>in einer Datei steht eine zweite Szene</translation>
    </message>
    <message>
        <source>&lt;%1&gt; is not a scene</source>
        <translation>&lt;%1&gt; ist keine Szene</translation>
    </message>
    <message>
        <source>there is no &lt;scene&gt;</source>
        <translation>es gibt kein &lt;scene&gt;</translation>
    </message>
</context>
<context>
    <name>SIO_Journal</name>
    <message>
        <source>&quot;%1&quot; is reached through a link</source>
        <translation>„%1“ wird über einen Link erreicht</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is missing</source>
        <translation>„%1“ fehlt</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is a link; remove it</source>
        <translation>„%1“ ist ein Link; entfernen Sie ihn</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is a save that was cut short, but not one that you began in this folder on this machine; it was left alone. Open the scene where it was saved, or remove &quot;.journal&quot; and &quot;.save&quot;</source>
        <translation>„%1“ ist ein abgebrochenes Speichern, das Sie aber nicht in diesem Ordner auf diesem Rechner begonnen haben; es wurde nicht angerührt. Öffnen Sie die Szene dort, wo sie gespeichert wurde, oder entfernen Sie „.journal“ und „.save“</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a place for a file of the scene: a link or a folder is in the way</source>
        <translation>„%1“ ist kein Platz für eine Datei der Szene: Ein Link oder ein Ordner ist im Weg</translation>
    </message>
</context>
<context>
    <name>SIO_JournalSeal</name>
    <message>
        <source>cannot make or read the key &quot;%1&quot;, without which no save is safe; make that folder writable and the file your own, or set XDG_STATE_HOME</source>
        <translation>der Schlüssel „%1“, ohne den kein Speichern sicher ist, lässt sich weder anlegen noch lesen; machen Sie den Ordner beschreibbar und die Datei zu Ihrer eigenen, oder setzen Sie XDG_STATE_HOME</translation>
    </message>
</context>
<context>
    <name>SIO_LoadScene</name>
    <message>
        <source>, line %1: </source>
        <translation>, Zeile %1: </translation>
    </message>
    <message>
        <source>%1, line %2: %3</source>
        <translation>%1, Zeile %2: %3</translation>
    </message>
    <message>
        <source>the scene has no node &quot;%1&quot; with drawings</source>
        <translation>die Szene hat keinen Knoten „%1“ mit Zeichnungen</translation>
    </message>
    <message>
        <source>the scene &quot;%1&quot; is being saved again and again; try later</source>
        <translation>die Szene „%1“ wird immer wieder gespeichert; versuchen Sie es später</translation>
    </message>
    <message>
        <source>there is no scene &quot;%1&quot;</source>
        <translation>es gibt keine Szene „%1“</translation>
    </message>
</context>
<context>
    <name>SIO_Palette</name>
    <message>
        <source>a colour of the kind &quot;%1&quot; is shown as a plain one; it is kept</source>
        <translation>eine Farbe der Art „%1“ wird als einfache gezeigt; sie bleibt erhalten</translation>
    </message>
    <message>
        <source>a colour of the type &quot;%1&quot; is taken for a plain one</source>
        <translation>eine Farbe vom Typ „%1“ wird als einfache genommen</translation>
    </message>
    <message>
        <source>the colour has no identifier of 16 hexadecimal digits</source>
        <translation>die Farbe hat keine Kennung aus 16 hexadezimalen Ziffern</translation>
    </message>
    <message>
        <source>red, green, blue and alpha are whole numbers from 0 to 255</source>
        <translation>Rot, Grün, Blau und Alpha sind ganze Zahlen von 0 bis 255</translation>
    </message>
    <message>
        <source>a second colour has the identifier %1</source>
        <translation>eine zweite Farbe hat die Kennung %1</translation>
    </message>
    <message>
        <source>&lt;%1&gt; is not a palette</source>
        <translation>&lt;%1&gt; ist keine Palette</translation>
    </message>
    <message>
        <source>the palette&apos;s identifier is not %1</source>
        <translation>die Kennung der Palette ist nicht %1</translation>
    </message>
</context>
<context>
    <name>SIO_PathInside</name>
    <message>
        <source>&quot;%1&quot; is not a path within the scene&apos;s folder</source>
        <translation>„%1“ ist kein Pfad innerhalb des Szenenordners</translation>
    </message>
</context>
<context>
    <name>SIO_SafeFile</name>
    <message>
        <source>&quot;%1&quot; is larger than %2 MiB</source>
        <translation>„%1“ ist größer als %2 MiB</translation>
    </message>
    <message>
        <source>cannot read &quot;%1&quot;: %2</source>
        <translation>„%1“ ist nicht lesbar: %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is reached through a link; a scene holds plain files and folders only</source>
        <translation>„%1“ wird über einen Link erreicht; eine Szene enthält nur gewöhnliche Dateien und Ordner</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a plain file</source>
        <translation>„%1“ ist keine gewöhnliche Datei</translation>
    </message>
</context>
<context>
    <name>SIO_SaveScene</name>
    <message>
        <source>&quot;%1&quot; belongs to another program; name another folder</source>
        <translation>„%1“ gehört einem anderen Programm; nennen Sie einen anderen Ordner</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is a file; a scene is a folder</source>
        <translation>„%1“ ist eine Datei; eine Szene ist ein Ordner</translation>
    </message>
</context>
<context>
    <name>SIO_SceneFiles</name>
    <message>
        <source>&quot;%1&quot; would be larger than %2 MiB</source>
        <translation>„%1“ wäre größer als %2 MiB</translation>
    </message>
    <message>
        <source>&quot;%1&quot; would have more than %2 elements and attributes</source>
        <translation>„%1“ hätte mehr als %2 Elemente und Attribute</translation>
    </message>
    <message>
        <source>two different palettes have the identifier %1</source>
        <translation>zwei verschiedene Paletten haben die Kennung %1</translation>
    </message>
    <message>
        <source>the palette &quot;%1&quot; has no identifier</source>
        <translation>die Palette „%1“ hat keine Kennung</translation>
    </message>
</context>
<context>
    <name>SIO_Warnings</name>
    <message>
        <source> (and %1 times more)</source>
        <translation> (und noch %1-mal)</translation>
    </message>
    <message>
        <source>and %1 warnings of other kinds</source>
        <translation>und %1 andere Warnungen</translation>
    </message>
</context>
<context>
    <name>SIO_XmlContext</name>
    <message>
        <source>%1, line %2</source>
        <translation>%1, Zeile %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not understood by this version of the program; it is kept</source>
        <translation>„%1“ versteht diese Programmversion nicht; es bleibt erhalten</translation>
    </message>
    <message>
        <source>&lt;%1&gt; is not understood by this version of the program; it is kept</source>
        <translation>&lt;%1&gt; versteht diese Programmversion nicht; es bleibt erhalten</translation>
    </message>
    <message>
        <source>a newer version of the program saved this</source>
        <translation>dies wurde mit einer neueren Programmversion gespeichert</translation>
    </message>
</context>
<context>
    <name>SceneDialog</name>
    <message>
        <source>Scene</source>
        <translation>Szene</translation>
    </message>
    <message>
        <source>Open a Scene</source>
        <translation>Szene öffnen</translation>
    </message>
    <message>
        <source>Scene:</source>
        <translation>Szene:</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <translation>Ö&amp;ffnen</translation>
    </message>
    <message>
        <source>Look in:</source>
        <translation>Suchen in:</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>SceneFiles</name>
    <message>
        <source>Open one scene at a time, or drawings without a scene.</source>
        <translation>Öffnen Sie immer nur eine Szene, oder Zeichnungen ohne Szene.</translation>
    </message>
    <message>
        <source>There is nothing to open: neither a scene nor drawings (%1).</source>
        <translation>Hier gibt es nichts zu öffnen: weder eine Szene noch Zeichnungen (%1).</translation>
    </message>
    <message>
        <source>There is not enough memory to open this.</source>
        <translation>Der Speicher reicht nicht, um das zu öffnen.</translation>
    </message>
    <message>
        <source>%1 does not exist. Is its path right?</source>
        <translation>%1 gibt es nicht. Stimmt der Pfad?</translation>
    </message>
</context>
<context>
    <name>Shortcuts</name>
    <message>
        <source>Everywhere</source>
        <translation>Überall</translation>
    </message>
</context>
<context>
    <name>StartPage</name>
    <message>
        <source>%1  -  in %2</source>
        <translation>%1  –  in %2</translation>
    </message>
    <message>
        <source>Recent</source>
        <translation>Zuletzt geöffnet</translation>
    </message>
    <message>
        <source>&amp;Import drawings</source>
        <translation>Zeichnungen &amp;importieren</translation>
    </message>
    <message>
        <source>&amp;Open a scene</source>
        <translation>Szene ö&amp;ffnen</translation>
    </message>
    <message>
        <source>One that was saved before</source>
        <translation>Eine, die schon gespeichert wurde</translation>
    </message>
    <message>
        <source>Look at the &amp;example</source>
        <translation>&amp;Beispiel ansehen</translation>
    </message>
    <message>
        <source>A drawing with volume, and a light to move over it</source>
        <translation>Eine Zeichnung mit Volumen und ein Licht, das sich darüber bewegen lässt</translation>
    </message>
    <message>
        <source>&lt;span style=&apos;font-size:20pt; font-weight:600&apos;&gt;Quarvel Studio&lt;/span&gt;&lt;br&gt;Volume for flat drawings. Drop a drawing here to begin.</source>
        <translation>&lt;span style=&apos;font-size:20pt; font-weight:600&apos;&gt;Quarvel Studio&lt;/span&gt;&lt;br&gt;Volumen für flache Zeichnungen. Ziehen Sie eine Zeichnung hierher, um anzufangen.</translation>
    </message>
    <message>
        <source>First steps</source>
        <translation>Erste Schritte</translation>
    </message>
    <message>
        <source>More help</source>
        <translation>Mehr Hilfe</translation>
    </message>
    <message>
        <source>SVG, PNG, PSD, Krita, Aseprite or Lottie, one file or many</source>
        <translation>SVG, PNG, PSD, Krita, Aseprite oder Lottie, eine Datei oder viele</translation>
    </message>
</context>
<context>
    <name>StudioDocks</name>
    <message>
        <source>Nodes</source>
        <translation>Knoten</translation>
    </message>
    <message>
        <source>Timeline</source>
        <translation>Zeitleiste</translation>
    </message>
    <message>
        <source>Properties</source>
        <translation>Eigenschaften</translation>
    </message>
    <message>
        <source>Palette</source>
        <translation>Palette</translation>
    </message>
    <message>
        <source>Elements</source>
        <translation>Elemente</translation>
    </message>
    <message>
        <source>Depth by Colour</source>
        <translation>Tiefe nach Farbe</translation>
    </message>
</context>
<context>
    <name>StudioDocument</name>
    <message>
        <source>Untitled</source>
        <translation>Unbenannt</translation>
    </message>
</context>
<context>
    <name>TimelineCanvas</name>
    <message>
        <source>Timeline</source>
        <translation>Zeitleiste</translation>
    </message>
    <message>
        <source>Show from Frame %1</source>
        <translation>Ab Bild %1 zeigen</translation>
    </message>
    <message>
        <source>Show Nothing from Frame %1</source>
        <translation>Ab Bild %1 nichts zeigen</translation>
    </message>
    <message>
        <source>Remove Exposure</source>
        <translation>Belichtung entfernen</translation>
    </message>
    <message>
        <source>Add Key at Frame %1</source>
        <translation>Keyframe bei Bild %1 setzen</translation>
    </message>
    <message>
        <source>Hold until the Next Key</source>
        <translation>Bis zum nächsten Keyframe halten</translation>
    </message>
    <message>
        <source>Straight to the Next Key</source>
        <translation>Linear zum nächsten Keyframe</translation>
    </message>
    <message>
        <source>Smooth to the Next Key</source>
        <translation>Weich zum nächsten Keyframe</translation>
    </message>
    <message>
        <source>Delete Key</source>
        <translation>Keyframe löschen</translation>
    </message>
    <message>
        <source>Click or drag to go to a frame</source>
        <translation>Klicken oder ziehen, um zu einem Bild zu gehen</translation>
    </message>
    <message>
        <source>%1, frame %2: %3</source>
        <translation>%1, Bild %2: %3</translation>
    </message>
    <message>
        <source>nothing</source>
        <translation>nichts</translation>
    </message>
</context>
<context>
    <name>TimelineRows</name>
    <message>
        <source>Camera: %1</source>
        <translation>Kamera: %1</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
</context>
<context>
    <name>TimelineView</name>
    <message>
        <source>Go to the first frame (Home)</source>
        <translation>Zum ersten Bild (Pos1)</translation>
    </message>
    <message>
        <source>One frame back (Left)</source>
        <translation>Ein Bild zurück (Links)</translation>
    </message>
    <message>
        <source>Play or stop (Space)</source>
        <translation>Abspielen oder anhalten (Leertaste)</translation>
    </message>
    <message>
        <source>One frame forward (Right)</source>
        <translation>Ein Bild vor (Rechts)</translation>
    </message>
    <message>
        <source>Go to the last frame (End)</source>
        <translation>Zum letzten Bild (Ende)</translation>
    </message>
    <message>
        <source>Frame</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>The frame that is shown</source>
        <translation>Das gezeigte Bild</translation>
    </message>
    <message>
        <source>From</source>
        <translation>Von</translation>
    </message>
    <message>
        <source>The scene&apos;s first frame</source>
        <translation>Das erste Bild der Szene</translation>
    </message>
    <message>
        <source>to</source>
        <translation>bis</translation>
    </message>
    <message>
        <source>The scene&apos;s last frame</source>
        <translation>Das letzte Bild der Szene</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Abspielen</translation>
    </message>
    <message>
        <source>How many frames a second the scene is played with</source>
        <translation>Mit wie vielen Bildern je Sekunde die Szene abgespielt wird</translation>
    </message>
    <message>
        <source>Frames a second</source>
        <translation>Bilder je Sekunde</translation>
    </message>
    <message>
        <source> fps</source>
        <translation> fps</translation>
    </message>
    <message>
        <source>Loop &amp;From This Frame</source>
        <translation>Schleife &amp;ab diesem Bild</translation>
    </message>
    <message>
        <source>Loop &amp;Up to This Frame</source>
        <translation>Schleife &amp;bis zu diesem Bild</translation>
    </message>
    <message>
        <source>Loop &amp;All Frames</source>
        <translation>A&amp;lle Bilder wiederholen</translation>
    </message>
</context>
<context>
    <name>Viewer</name>
    <message>
        <source>Picture</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>&quot;%1&quot; shows colours: there is no volume to look at.
Connect it to a normal-map node, or look at the drawing.</source>
        <translation>„%1“ zeigt Farben; ein Volumen gibt es hier nicht zu sehen.
Verbinden Sie es mit einem Normal-Map-Knoten oder sehen Sie sich die Zeichnung an.</translation>
    </message>
    <message>
        <source>The node makes no normals, so there is nothing to light.
Switch on &quot;Generate Normals&quot; in its properties.</source>
        <translation>Der Knoten erzeugt keine Normalen, also gibt es nichts zu beleuchten.
Schalten Sie in seinen Eigenschaften „Normalen erzeugen“ ein.</translation>
    </message>
</context>
<context>
    <name>XUGroup</name>
    <message>
        <source>Group</source>
        <translation>Gruppe</translation>
    </message>
    <message>
        <source>Line %1: %2</source>
        <translation>Zeile %1: %2</translation>
    </message>
    <message>
        <source>&lt;%1&gt; is not understood by this version</source>
        <translation>&lt;%1&gt; versteht diese Version nicht</translation>
    </message>
    <message>
        <source>Line %1: a graph with more than %2 nodes is not read</source>
        <translation>Zeile %1: Ein Graph mit mehr als %2 Knoten wird nicht gelesen</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is of the unknown kind &quot;%2&quot;; it is kept as it is</source>
        <translation>„%1“ ist von der unbekannten Art „%2“; es bleibt, wie es ist</translation>
    </message>
    <message>
        <source>A second node &quot;%1&quot; is called &quot;%2&quot; now</source>
        <translation>Ein zweiter Knoten „%1“ heißt jetzt „%2“</translation>
    </message>
    <message>
        <source>The link leads from or to nowhere and is left out</source>
        <translation>Die Verbindung führt ins Leere und wird ausgelassen</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not understood by this version</source>
        <translation>„%1“ versteht diese Version nicht</translation>
    </message>
    <message>
        <source>the graph would have more than %1 nodes</source>
        <translation>der Graph hätte mehr als %1 Knoten</translation>
    </message>
    <message>
        <source>more than %1 groups would lie in each other</source>
        <translation>mehr als %1 Gruppen lägen ineinander</translation>
    </message>
    <message>
        <source>Line %1: more than %2 groups in each other are not read</source>
        <translation>Zeile %1: Mehr als %2 Gruppen ineinander werden nicht gelesen</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Volume for flat drawings</source>
        <translation>Volumen für flache Zeichnungen</translation>
    </message>
    <message>
        <source>Write pictures of the windows and end.</source>
        <translation>Bilder der Fenster schreiben und beenden.</translation>
    </message>
    <message>
        <source>A scene, or drawings to import.</source>
        <translation>Eine Szene oder Zeichnungen zum Importieren.</translation>
    </message>
    <message>
        <source>Print how many pictures a second the window shows, and end.</source>
        <translation>Ausgeben, wie viele Bilder je Sekunde das Fenster zeigt, und beenden.</translation>
    </message>
    <message>
        <source>Not opened, because a scene was recovered: %1</source>
        <translation>Nicht geöffnet, weil eine Szene wiederhergestellt wurde: %1</translation>
    </message>
</context>
</TS>
