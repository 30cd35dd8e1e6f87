<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>AccountInformationDialog</name>
    <message>
        <source>Account Information</source>
        <translation>Kontoinformationen</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Quelle</translation>
    </message>
    <message>
        <source>Asking the server...</source>
        <translation>Server wird gefragt...</translation>
    </message>
    <message>
        <source>The server could not be reached, or its answer cannot be read.</source>
        <translation>Der Server ist nicht erreichbar, oder seine Antwort ist nicht lesbar.</translation>
    </message>
    <message>
        <source>The server does not accept this account, or tells nothing about it.</source>
        <translation>Der Server akzeptiert dieses Konto nicht oder teilt nichts darüber mit.</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Unbekannt</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>Expires</source>
        <translation>Läuft ab</translation>
    </message>
    <message>
        <source>Never</source>
        <translation>Nie</translation>
    </message>
    <message>
        <source>Trial</source>
        <translation>Testzugang</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Ja</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nein</translation>
    </message>
    <message>
        <source>Connections in use</source>
        <translation>Verbindungen in Benutzung</translation>
    </message>
    <message>
        <source>Connections allowed</source>
        <translation>Erlaubte Verbindungen</translation>
    </message>
    <message>
        <source>Formats</source>
        <translation>Formate</translation>
    </message>
    <message>
        <source>Time zone of the server</source>
        <translation>Zeitzone des Servers</translation>
    </message>
</context>
<context>
    <name>BrowseTab</name>
    <message>
        <source>Live TV</source>
        <translation>Live-TV</translation>
    </message>
    <message>
        <source>Search all channels...</source>
        <translation>Alle Sender durchsuchen...</translation>
    </message>
    <message>
        <source>Channels</source>
        <translation>Sender</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>Sender</translation>
    </message>
    <message>
        <source>Movies</source>
        <translation>Filme</translation>
    </message>
    <message>
        <source>Search all movies...</source>
        <translation>Alle Filme durchsuchen...</translation>
    </message>
    <message>
        <source>TV Shows</source>
        <translation>Serien</translation>
    </message>
    <message>
        <source>Search all shows...</source>
        <translation>Alle Serien durchsuchen...</translation>
    </message>
    <message>
        <source>Shows</source>
        <translation>Serien</translation>
    </message>
    <message>
        <source>Select a category:</source>
        <translation>Kategorie auswählen:</translation>
    </message>
    <message>
        <source>Categories</source>
        <translation>Kategorien</translation>
    </message>
    <message>
        <source>Search...</source>
        <translation>Suchen...</translation>
    </message>
    <message>
        <source>Sort by</source>
        <translation>Sortieren nach</translation>
    </message>
    <message>
        <source>Name (A-Z)</source>
        <translation>Name (A-Z)</translation>
    </message>
    <message>
        <source>Recently Added</source>
        <translation>Zuletzt hinzugefügt</translation>
    </message>
    <message>
        <source>Rating</source>
        <translation>Bewertung</translation>
    </message>
    <message>
        <source>&lt; Back to Categories</source>
        <translation>&lt; Zurück zu den Kategorien</translation>
    </message>
    <message>
        <source>All Categories</source>
        <translation>Alle Kategorien</translation>
    </message>
    <message>
        <source>Search: &quot;%1&quot;</source>
        <translation>Suche: „%1“</translation>
    </message>
    <message>
        <source>Guide</source>
        <translation>Programm</translation>
    </message>
    <message>
        <source>Show the programme guide</source>
        <translation>TV-Programm anzeigen</translation>
    </message>
    <message>
        <source>Remove from Favorites</source>
        <translation>Aus Favoriten entfernen</translation>
    </message>
    <message>
        <source>Add to Favorites</source>
        <translation>Zu Favoriten hinzufügen</translation>
    </message>
    <message>
        <source>Remove from List</source>
        <translation>Aus Liste entfernen</translation>
    </message>
    <message>
        <source>Mark as Watched</source>
        <translation>Als gesehen markieren</translation>
    </message>
    <message>
        <source>Mark as Unwatched</source>
        <translation>Als ungesehen markieren</translation>
    </message>
</context>
<context>
    <name>CatchUpPlayer</name>
    <message>
        <source>The archive does not tell how to play this programme.</source>
        <translation>Das Archiv teilt nicht mit, wie diese Sendung abgespielt wird.</translation>
    </message>
    <message>
        <source>%1 - %2</source>
        <translation>%1 - %2</translation>
    </message>
</context>
<context>
    <name>CategoryList</name>
    <message>
        <source>Favorites</source>
        <translation>Favoriten</translation>
    </message>
    <message>
        <source>Continue Watching</source>
        <translation>Weitersehen</translation>
    </message>
    <message>
        <source>Recently Watched</source>
        <translation>Zuletzt gesehen</translation>
    </message>
    <message>
        <source>All Categories</source>
        <translation>Alle Kategorien</translation>
    </message>
    <message>
        <source>Hidden</source>
        <translation>Ausgeblendet</translation>
    </message>
    <message>
        <source>Unhide Category</source>
        <translation>Kategorie einblenden</translation>
    </message>
    <message>
        <source>Hide Category</source>
        <translation>Kategorie ausblenden</translation>
    </message>
    <message>
        <source>Show Hidden Categories</source>
        <translation>Ausgeblendete Kategorien anzeigen</translation>
    </message>
</context>
<context>
    <name>ClearHistoryDialog</name>
    <message>
        <source>Recently watched</source>
        <translation>Zuletzt gesehen</translation>
    </message>
    <message>
        <source>Positions and watched marks</source>
        <translation>Positionen und Gesehen-Markierungen</translation>
    </message>
    <message>
        <source>Clear History</source>
        <translation>Verlauf löschen</translation>
    </message>
    <message>
        <source>What goes, of all sources? Favorites and hidden categories stay.</source>
        <translation>Was soll aus allen Quellen gelöscht werden? Favoriten und ausgeblendete Kategorien bleiben erhalten.</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Löschen</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>Subscription service: %1</source>
        <translation>Abonnementdienst: %1</translation>
    </message>
    <message>
        <source>A player for internet television.</source>
        <translation>Ein Player für Internetfernsehen.</translation>
    </message>
    <message>
        <source>Displays version information.</source>
        <translation>Zeigt Versionsinformationen an.</translation>
    </message>
    <message>
        <source>Playlists, films and streams to open: files or URLs.</source>
        <translation>Zu öffnende Wiedergabelisten, Filme und Streams: Dateien oder URLs.</translation>
    </message>
</context>
<context>
    <name>EntryMarks</name>
    <message>
        <source>Favorite</source>
        <translation>Favorit</translation>
    </message>
    <message>
        <source>Watched</source>
        <translation>Gesehen</translation>
    </message>
    <message>
        <source>%1 % watched</source>
        <translation>%1 % gesehen</translation>
    </message>
</context>
<context>
    <name>EntryTable</name>
    <message>
        <source>Move Up</source>
        <translation>Nach oben</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>Nach unten</translation>
    </message>
</context>
<context>
    <name>EpisodePage</name>
    <message>
        <source>&lt; Back to Shows</source>
        <translation>&lt; Zurück zu den Serien</translation>
    </message>
    <message>
        <source>Episodes</source>
        <translation>Folgen</translation>
    </message>
    <message>
        <source>E%1 - %2</source>
        <translation>E%1 - %2</translation>
    </message>
    <message>
        <source>Season %1</source>
        <translation>Staffel %1</translation>
    </message>
    <message>
        <source>Mark as Watched</source>
        <translation>Als gesehen markieren</translation>
    </message>
    <message>
        <source>Mark as Unwatched</source>
        <translation>Als ungesehen markieren</translation>
    </message>
</context>
<context>
    <name>GuideAddressList</name>
    <message>
        <source>Addresses of guides, the preferred one first</source>
        <translation>Adressen von TV-Programmen, die bevorzugte zuerst</translation>
    </message>
    <message>
        <source>Add Address...</source>
        <translation>Adresse hinzufügen...</translation>
    </message>
    <message>
        <source>Add File...</source>
        <translation>Datei hinzufügen...</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>Nach oben</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>Nach unten</translation>
    </message>
    <message>
        <source>Add Account&apos;s Guide</source>
        <translation>Programm des Kontos hinzufügen</translation>
    </message>
    <message>
        <source>Add Playlist&apos;s Guide</source>
        <translation>Programm der Wiedergabeliste hinzufügen</translation>
    </message>
    <message>
        <source>Add File</source>
        <translation>Datei hinzufügen</translation>
    </message>
    <message>
        <source>Guides (*.xml *.xmltv *.gz);;All Files (*)</source>
        <translation>TV-Programme (*.xml *.xmltv *.gz);;Alle Dateien (*)</translation>
    </message>
</context>
<context>
    <name>GuideChannelDialog</name>
    <message>
        <source>Automatic: find it by its id and name</source>
        <translation>Automatisch: anhand von Kennung und Name finden</translation>
    </message>
    <message>
        <source>No guide for this channel</source>
        <translation>Kein TV-Programm für diesen Sender</translation>
    </message>
    <message>
        <source>This channel of the guide:</source>
        <translation>Dieser Sender des TV-Programms:</translation>
    </message>
    <message>
        <source>Guide Channel</source>
        <translation>Sender im TV-Programm</translation>
    </message>
    <message>
        <source>Channel: %1</source>
        <translation>Sender: %1</translation>
    </message>
    <message>
        <source>Confirm Suggestion</source>
        <translation>Vorschlag bestätigen</translation>
    </message>
    <message>
        <source>Found by the id that the source names: %1</source>
        <translation>Gefunden anhand der Kennung, die die Quelle nennt: %1</translation>
    </message>
    <message>
        <source>Found by the name that the source gives for the guide: %1</source>
        <translation>Gefunden anhand des Namens, den die Quelle für das TV-Programm angibt: %1</translation>
    </message>
    <message>
        <source>Found by the channel&apos;s name: %1</source>
        <translation>Gefunden anhand des Sendernamens: %1</translation>
    </message>
    <message>
        <source>Suggested, since the names are alike: %1</source>
        <translation>Vorgeschlagen, weil die Namen sich ähneln: %1</translation>
    </message>
    <message>
        <source>Search the guide&apos;s channels</source>
        <translation>Sender des TV-Programms durchsuchen</translation>
    </message>
    <message>
        <source>Search the guide&apos;s channels...</source>
        <translation>Sender des TV-Programms durchsuchen...</translation>
    </message>
    <message>
        <source>Channels of the guide</source>
        <translation>Sender des TV-Programms</translation>
    </message>
    <message>
        <source>No channel of the guide contains this text.</source>
        <translation>Kein Sender des TV-Programms enthält diesen Text.</translation>
    </message>
    <message>
        <source>Only the first %1 are shown. Type more of the name.</source>
        <translation>Nur die ersten %1 werden angezeigt. Geben Sie mehr vom Namen ein.</translation>
    </message>
</context>
<context>
    <name>GuideDialog</name>
    <message>
        <source>Show a programme guide for this source</source>
        <translation>TV-Programm für diese Quelle anzeigen</translation>
    </message>
    <message>
        <source>Refresh every 12 hours</source>
        <translation>Alle 12 Stunden aktualisieren</translation>
    </message>
    <message>
        <source>Update Now</source>
        <translation>Jetzt aktualisieren</translation>
    </message>
    <message>
        <source>Cancel Update</source>
        <translation>Aktualisierung abbrechen</translation>
    </message>
    <message>
        <source>Programme Guide</source>
        <translation>TV-Programm</translation>
    </message>
    <message>
        <source>Source: %1</source>
        <translation>Quelle: %1</translation>
    </message>
    <message>
        <source> hours</source>
        <translation> Stunden</translation>
    </message>
    <message>
        <source>Where the guide comes from, in order of preference:</source>
        <translation>Woher das TV-Programm kommt, in bevorzugter Reihenfolge:</translation>
    </message>
    <message>
        <source>Shift all times by:</source>
        <translation>Alle Zeiten verschieben um:</translation>
    </message>
    <message>
        <source>Progress of the update</source>
        <translation>Fortschritt der Aktualisierung</translation>
    </message>
</context>
<context>
    <name>GuideGrid</name>
    <message>
        <source>Programme guide</source>
        <translation>TV-Programm</translation>
    </message>
    <message>
        <source>in the archive</source>
        <translation>im Archiv</translation>
    </message>
    <message>
        <source>No information</source>
        <translation>Keine Angaben</translation>
    </message>
</context>
<context>
    <name>GuideResult</name>
    <message>
        <source>The account&apos;s own guide</source>
        <translation>Das eigene TV-Programm des Kontos</translation>
    </message>
    <message>
        <source>The guide of the last update stays.</source>
        <translation>Das TV-Programm der letzten Aktualisierung bleibt erhalten.</translation>
    </message>
    <message>
        <source>The update was cancelled. The guide of the last update stays.</source>
        <translation>Die Aktualisierung wurde abgebrochen. Das TV-Programm der letzten Aktualisierung bleibt erhalten.</translation>
    </message>
    <message>
        <source>Last update: %1</source>
        <translation>Letzte Aktualisierung: %1</translation>
    </message>
    <message>
        <source>Programmes: %1</source>
        <translation>Sendungen: %1</translation>
    </message>
    <message>
        <source>Channels with a guide: %1 of %2</source>
        <translation>Sender mit TV-Programm: %1 von %2</translation>
    </message>
    <message>
        <source>Of these, only suggested: %1. Confirm or change them with &quot;Guide Channel...&quot; in a channel&apos;s menu.</source>
        <translation>Davon nur vorgeschlagen: %1. Bestätigen oder ändern Sie sie mit „Sender im TV-Programm...“ im Menü eines Senders.</translation>
    </message>
    <message>
        <source>The last programme begins: %1</source>
        <translation>Die letzte Sendung beginnt: %1</translation>
    </message>
    <message>
        <source>%1 cannot be reached: %2</source>
        <translation>%1 ist nicht erreichbar: %2</translation>
    </message>
    <message>
        <source>%1 cannot be opened: %2</source>
        <translation>%1 kann nicht geöffnet werden: %2</translation>
    </message>
    <message>
        <source>%1 is no guide. It may be a page or an error message.</source>
        <translation>%1 ist kein TV-Programm. Es ist möglicherweise eine Webseite oder eine Fehlermeldung.</translation>
    </message>
    <message>
        <source>%1 is packed in a form other than gzip, which cannot be read.</source>
        <translation>%1 ist nicht mit gzip, sondern in einer anderen Form gepackt, die nicht gelesen werden kann.</translation>
    </message>
    <message>
        <source>%1 is damaged and cannot be unpacked.</source>
        <translation>%1 ist beschädigt und kann nicht entpackt werden.</translation>
    </message>
    <message>
        <source>%1 ends early. It was not taken.</source>
        <translation>%1 endet vorzeitig und wurde nicht übernommen.</translation>
    </message>
    <message>
        <source>%1 is too large.</source>
        <translation>%1 ist zu groß.</translation>
    </message>
    <message>
        <source>%1 has no programmes of the channels of this source.</source>
        <translation>%1 enthält keine Sendungen der Sender dieser Quelle.</translation>
    </message>
    <message>
        <source>%1 cannot be stored: %2</source>
        <translation>%1 kann nicht gespeichert werden: %2</translation>
    </message>
    <message>
        <source>What the source tells of its channels cannot be read: %1</source>
        <translation>Die Angaben der Quelle zu ihren Sendern können nicht gelesen werden: %1</translation>
    </message>
    <message numerus="yes">
        <source>%1: %Ln programmes. The time zone of some is not known; they may be shown at the wrong hour.</source>
        <translation>
            <numerusform>%1: %Ln Sendung. Die Zeitzone mancher Sendungen ist nicht bekannt; sie werden möglicherweise zur falschen Stunde angezeigt.</numerusform>
            <numerusform>%1: %Ln Sendungen. Die Zeitzone mancher Sendungen ist nicht bekannt; sie werden möglicherweise zur falschen Stunde angezeigt.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1: %Ln programmes.</source>
        <translation>
            <numerusform>%1: %Ln Sendung.</numerusform>
            <numerusform>%1: %Ln Sendungen.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>GuideSearchList</name>
    <message>
        <source>Programmes found</source>
        <translation>Gefundene Sendungen</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Programme</source>
        <translation>Sendung</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>Sender</translation>
    </message>
</context>
<context>
    <name>GuideTexts</name>
    <message>
        <source>%1 - %2</source>
        <translation>%1 - %2</translation>
    </message>
    <message>
        <source>Yesterday</source>
        <translation>Gestern</translation>
    </message>
    <message>
        <source>Today</source>
        <translation>Heute</translation>
    </message>
    <message>
        <source>Tomorrow</source>
        <translation>Morgen</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <translation>%1 %2</translation>
    </message>
    <message>
        <source>Yesterday %1</source>
        <translation>Gestern %1</translation>
    </message>
    <message>
        <source>Today %1</source>
        <translation>Heute %1</translation>
    </message>
    <message>
        <source>Tomorrow %1</source>
        <translation>Morgen %1</translation>
    </message>
</context>
<context>
    <name>GuideView</name>
    <message>
        <source>Now</source>
        <translation>Jetzt</translation>
    </message>
    <message>
        <source>Show what runs now</source>
        <translation>Anzeigen, was jetzt läuft</translation>
    </message>
    <message>
        <source>Previous day</source>
        <translation>Vorheriger Tag</translation>
    </message>
    <message>
        <source>Day</source>
        <translation>Tag</translation>
    </message>
    <message>
        <source>Next day</source>
        <translation>Nächster Tag</translation>
    </message>
    <message>
        <source>Search programmes...</source>
        <translation>Sendungen suchen...</translation>
    </message>
    <message>
        <source>No programme found.</source>
        <translation>Keine Sendung gefunden.</translation>
    </message>
    <message>
        <source>%1  %2 (in the archive)</source>
        <translation>%1  %2 (im Archiv)</translation>
    </message>
    <message>
        <source>%1  %2</source>
        <translation>%1  %2</translation>
    </message>
</context>
<context>
    <name>Library</name>
    <message>
        <source>Favorites and positions cannot be stored: %1</source>
        <translation>Favoriten und Positionen können nicht gespeichert werden: %1</translation>
    </message>
    <message>
        <source>Favorites and positions were stored by a newer version of this program. They stay as they are, and changes are not stored.</source>
        <translation>Favoriten und Positionen wurden von einer neueren Version dieses Programms gespeichert. Sie bleiben, wie sie sind, und Änderungen werden nicht gespeichert.</translation>
    </message>
    <message>
        <source>The file with your favorites and positions was damaged. It was kept as &quot;%1&quot;, and a new one was begun.</source>
        <translation>Die Datei mit Ihren Favoriten und Positionen war beschädigt. Sie wurde als „%1“ aufbewahrt, und eine neue wurde angelegt.</translation>
    </message>
</context>
<context>
    <name>LibraryBackup</name>
    <message>
        <source>This file is not a backup of Vantiro Player, or it is damaged.</source>
        <translation>Diese Datei ist keine Sicherung von Vantiro Player, oder sie ist beschädigt.</translation>
    </message>
    <message>
        <source>This backup was made by a newer version of Vantiro Player.</source>
        <translation>Diese Sicherung wurde mit einer neueren Version von Vantiro Player erstellt.</translation>
    </message>
    <message>
        <source>This backup is damaged: its part &quot;%1&quot; cannot be read.</source>
        <translation>Diese Sicherung ist beschädigt: Ihr Teil „%1“ kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>The backup cannot be written: %1</source>
        <translation>Die Sicherung kann nicht geschrieben werden: %1</translation>
    </message>
    <message>
        <source>The backup cannot be read: %1</source>
        <translation>Die Sicherung kann nicht gelesen werden: %1</translation>
    </message>
</context>
<context>
    <name>LoadingOverlay</name>
    <message>
        <source>Loading...</source>
        <translation>Wird geladen...</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Vantiro Player</source>
        <translation>Vantiro Player</translation>
    </message>
    <message>
        <source>Please provide a valid subscription key.</source>
        <translation>Bitte geben Sie einen gültigen Abonnementschlüssel ein.</translation>
    </message>
    <message>
        <source>Please provide a valid URL/path.</source>
        <translation>Bitte geben Sie eine gültige URL oder einen gültigen Pfad ein.</translation>
    </message>
    <message>
        <source>%1 until %2</source>
        <translation>%1 bis %2</translation>
    </message>
    <message>
        <source>Next: %1 %2</source>
        <translation>Danach: %1 %2</translation>
    </message>
    <message>
        <source>Watch from Start</source>
        <translation>Von Anfang an ansehen</translation>
    </message>
    <message>
        <source>Schedule</source>
        <translation>Sendeplan</translation>
    </message>
    <message>
        <source>Guide Channel...</source>
        <translation>Sender im TV-Programm...</translation>
    </message>
    <message>
        <source>Favorites and Positions</source>
        <translation>Favoriten und Positionen</translation>
    </message>
    <message>
        <source>Removed from Favorites</source>
        <translation>Aus Favoriten entfernt</translation>
    </message>
    <message>
        <source>Added to Favorites</source>
        <translation>Zu Favoriten hinzugefügt</translation>
    </message>
    <message>
        <source>Marked as Watched</source>
        <translation>Als gesehen markiert</translation>
    </message>
    <message>
        <source>Marked as Unwatched</source>
        <translation>Als ungesehen markiert</translation>
    </message>
    <message>
        <source>History cleared</source>
        <translation>Verlauf gelöscht</translation>
    </message>
    <message>
        <source>Back Up</source>
        <translation>Sichern</translation>
    </message>
    <message>
        <source>The backup holds your sources, favorites, history, positions, hidden categories, the settings of programme guides and reminders.</source>
        <translation>Die Sicherung enthält Ihre Quellen, Favoriten, den Verlauf, Positionen, ausgeblendete Kategorien, die Einstellungen der TV-Programme und Erinnerungen.</translation>
    </message>
    <message>
        <source>The backup holds your sources, favorites, history, positions and hidden categories.</source>
        <translation>Die Sicherung enthält Ihre Quellen, Favoriten, den Verlauf, Positionen und ausgeblendete Kategorien.</translation>
    </message>
    <message>
        <source>Whoever has the file can read the passwords and keys in it.</source>
        <translation>Wer die Datei hat, kann die darin enthaltenen Passwörter und Schlüssel lesen.</translation>
    </message>
    <message>
        <source>Include passwords and keys</source>
        <translation>Passwörter und Schlüssel einschließen</translation>
    </message>
    <message>
        <source>Backups (*.json);;All Files (*)</source>
        <translation>Sicherungen (*.json);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Wiederherstellen</translation>
    </message>
    <message>
        <source>The backup could not be restored. Everything is as it was.</source>
        <translation>Die Sicherung konnte nicht wiederhergestellt werden. Alles ist, wie es war.</translation>
    </message>
    <message>
        <source>Vantiro Player %1
A player for internet television.
Copyright 2026 Vantiro. All rights reserved.

With Qt %2 (LGPL 3), libVLC %3 (LGPL 2.1 or later) and RapidJSON (MIT). The texts of these licences come with the package.</source>
        <translation>Vantiro Player %1
Ein Player für Internetfernsehen.
Copyright 2026 Vantiro. Alle Rechte vorbehalten.

Mit Qt %2 (LGPL 3), libVLC %3 (LGPL 2.1 oder neuer) und RapidJSON (MIT). Die Texte dieser Lizenzen liegen dem Paket bei.</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Über</translation>
    </message>
    <message>
        <source>Playback Error</source>
        <translation>Wiedergabefehler</translation>
    </message>
    <message>
        <source>Zevrino</source>
        <translation>Zevrino</translation>
    </message>
    <message>
        <source>Failed to load subscription: %1</source>
        <translation>Das Abonnement konnte nicht geladen werden: %1</translation>
    </message>
    <message>
        <source>Load Playlist</source>
        <translation>Wiedergabeliste laden</translation>
    </message>
    <message>
        <source>Failed to open file: %1</source>
        <translation>Die Datei konnte nicht geöffnet werden: %1</translation>
    </message>
    <message>
        <source>Failed to download playlist: %1</source>
        <translation>Die Wiedergabeliste konnte nicht heruntergeladen werden: %1</translation>
    </message>
    <message>
        <source>No channel %1</source>
        <translation>Kein Sender %1</translation>
    </message>
    <message>
        <source>Leave fullscreen first</source>
        <translation>Verlassen Sie zuerst das Vollbild</translation>
    </message>
    <message>
        <source>Shift+P or Escape leaves the small window</source>
        <translation>Verlassen: Umschalt+P oder Esc</translation>
    </message>
    <message>
        <source>It is not a film or a stream that can be played.</source>
        <translation>Das ist kein Film oder Stream, der abgespielt werden kann.</translation>
    </message>
    <message>
        <source>Open File</source>
        <translation>Datei öffnen</translation>
    </message>
    <message>
        <source>Videos and Playlists (%1);;All Files (*)</source>
        <translation>Videos und Wiedergabelisten (%1);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>This could not be opened:</source>
        <translation>Dies konnte nicht geöffnet werden:</translation>
    </message>
</context>
<context>
    <name>MoreMenu</name>
    <message>
        <source>Clear History...</source>
        <translation>Verlauf löschen...</translation>
    </message>
    <message>
        <source>More</source>
        <translation>Mehr</translation>
    </message>
    <message>
        <source>Back Up...</source>
        <translation>Sichern...</translation>
    </message>
    <message>
        <source>Restore...</source>
        <translation>Wiederherstellen...</translation>
    </message>
    <message>
        <source>Programme Guide...</source>
        <translation>TV-Programm...</translation>
    </message>
    <message>
        <source>Account Information...</source>
        <translation>Kontoinformationen...</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Über</translation>
    </message>
    <message>
        <source>Open File...</source>
        <translation>Datei öffnen...</translation>
    </message>
    <message>
        <source>Open Location...</source>
        <translation>Adresse öffnen...</translation>
    </message>
    <message>
        <source>Source Options...</source>
        <translation>Quellenoptionen...</translation>
    </message>
</context>
<context>
    <name>OnNow</name>
    <message>
        <source>Now</source>
        <translation>Jetzt</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Danach</translation>
    </message>
    <message>
        <source>This guide channel is a suggestion.</source>
        <translation>Dieser Sender des TV-Programms ist ein Vorschlag.</translation>
    </message>
</context>
<context>
    <name>OpenLocationDialog</name>
    <message>
        <source>Open Location</source>
        <translation>Adresse öffnen</translation>
    </message>
    <message>
        <source>http://example.com/stream.ts or a local file path</source>
        <translation>http://example.com/stream.ts oder ein lokaler Dateipfad</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Address:</source>
        <translation>Adresse:</translation>
    </message>
</context>
<context>
    <name>OpenTarget</name>
    <message>
        <source>The file does not exist.</source>
        <translation>Die Datei ist nicht vorhanden.</translation>
    </message>
    <message>
        <source>It is a folder.</source>
        <translation>Das ist ein Ordner.</translation>
    </message>
    <message>
        <source>Addresses that begin with &quot;%1:&quot; are not supported.</source>
        <translation>Adressen, die mit „%1:“ beginnen, werden nicht unterstützt.</translation>
    </message>
    <message>
        <source>The address names no server.</source>
        <translation>Die Adresse nennt keinen Server.</translation>
    </message>
</context>
<context>
    <name>PlaybackErrorBox</name>
    <message>
        <source>Playback Error</source>
        <translation>Wiedergabefehler</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Wiederholen</translation>
    </message>
</context>
<context>
    <name>PlaybackSession</name>
    <message>
        <source>Playback stopped: %1</source>
        <translation>Wiedergabe angehalten: %1</translation>
    </message>
    <message>
        <source>The archive sent nothing that plays.</source>
        <translation>Das Archiv hat nichts Abspielbares gesendet.</translation>
    </message>
    <message>
        <source>The archive stopped sending data.</source>
        <translation>Das Archiv sendet keine Daten mehr.</translation>
    </message>
</context>
<context>
    <name>PlayerCommands</name>
    <message>
        <source>Picture saved: %1</source>
        <translation>Bild gespeichert: %1</translation>
    </message>
    <message>
        <source>The picture could not be saved in %1.</source>
        <translation>Das Bild konnte nicht in %1 gespeichert werden.</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Nächster Eintrag</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>Vorheriger Eintrag</translation>
    </message>
    <message>
        <source>Last Channel</source>
        <translation>Letzter Sender</translation>
    </message>
    <message>
        <source>Slower</source>
        <translation>Langsamer</translation>
    </message>
    <message>
        <source>Faster</source>
        <translation>Schneller</translation>
    </message>
    <message>
        <source>Normal Speed</source>
        <translation>Normale Geschwindigkeit</translation>
    </message>
    <message>
        <source>Sound Earlier</source>
        <translation>Ton früher</translation>
    </message>
    <message>
        <source>Sound Later</source>
        <translation>Ton später</translation>
    </message>
    <message>
        <source>Subtitles Earlier</source>
        <translation>Untertitel früher</translation>
    </message>
    <message>
        <source>Subtitles Later</source>
        <translation>Untertitel später</translation>
    </message>
    <message>
        <source>Next Aspect Ratio</source>
        <translation>Nächstes Seitenverhältnis</translation>
    </message>
    <message>
        <source>Next Crop</source>
        <translation>Nächster Zuschnitt</translation>
    </message>
    <message>
        <source>Next Zoom</source>
        <translation>Nächster Zoom</translation>
    </message>
    <message>
        <source>Deinterlace</source>
        <translation>Deinterlacing</translation>
    </message>
    <message>
        <source>Next Audio Track</source>
        <translation>Nächste Audiospur</translation>
    </message>
    <message>
        <source>Next Subtitle Track</source>
        <translation>Nächste Untertitelspur</translation>
    </message>
    <message>
        <source>Save Picture</source>
        <translation>Bild speichern</translation>
    </message>
    <message>
        <source>Always on Top</source>
        <translation>Immer im Vordergrund</translation>
    </message>
    <message>
        <source>Small Window</source>
        <translation>Kleines Fenster</translation>
    </message>
    <message>
        <source>Nothing playing</source>
        <translation>Keine Wiedergabe</translation>
    </message>
    <message>
        <source>Channel %1</source>
        <translation>Sender %1</translation>
    </message>
    <message>
        <source>A live channel has no other speed</source>
        <translation>Ein Livesender hat keine andere Geschwindigkeit</translation>
    </message>
    <message>
        <source>Speed: %1x</source>
        <translation>Geschwindigkeit: %1x</translation>
    </message>
    <message>
        <source>Audio delay: %1 ms</source>
        <translation>Audioverzögerung: %1 ms</translation>
    </message>
    <message>
        <source>Subtitle delay: %1 ms</source>
        <translation>Untertitelverzögerung: %1 ms</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>Standard</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>Fit to Window</source>
        <translation>An Fenster anpassen</translation>
    </message>
    <message>
        <source>Aspect ratio: %1</source>
        <translation>Seitenverhältnis: %1</translation>
    </message>
    <message>
        <source>Crop: %1</source>
        <translation>Zuschnitt: %1</translation>
    </message>
    <message>
        <source>Zoom: %1</source>
        <translation>Zoom: %1</translation>
    </message>
    <message>
        <source>Deinterlacing: on</source>
        <translation>Deinterlacing: ein</translation>
    </message>
    <message>
        <source>Deinterlacing: off</source>
        <translation>Deinterlacing: aus</translation>
    </message>
    <message>
        <source>No audio tracks</source>
        <translation>Keine Audiospuren</translation>
    </message>
    <message>
        <source>Audio track: %1</source>
        <translation>Audiospur: %1</translation>
    </message>
    <message>
        <source>No subtitles</source>
        <translation>Keine Untertitel</translation>
    </message>
    <message>
        <source>Subtitles: %1</source>
        <translation>Untertitel: %1</translation>
    </message>
    <message>
        <source>Subtitles: off</source>
        <translation>Untertitel: aus</translation>
    </message>
    <message>
        <source>Always on top: on</source>
        <translation>Immer im Vordergrund: ein</translation>
    </message>
    <message>
        <source>Always on top: off</source>
        <translation>Immer im Vordergrund: aus</translation>
    </message>
</context>
<context>
    <name>PlayerMenu</name>
    <message>
        <source>Aspect Ratio</source>
        <translation>Seitenverhältnis</translation>
    </message>
    <message>
        <source>Crop</source>
        <translation>Zuschnitt</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>Zoom</translation>
    </message>
    <message>
        <source>Pause or Play</source>
        <translation>Pause oder Wiedergabe</translation>
    </message>
    <message>
        <source>Fullscreen</source>
        <translation>Vollbild</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Geschwindigkeit</translation>
    </message>
    <message>
        <source>Delays</source>
        <translation>Verzögerungen</translation>
    </message>
</context>
<context>
    <name>PlayerPanel</name>
    <message>
        <source>Nothing playing</source>
        <translation>Keine Wiedergabe</translation>
    </message>
    <message>
        <source>Player</source>
        <translation>Player</translation>
    </message>
    <message>
        <source>Video</source>
        <translation>Video</translation>
    </message>
    <message>
        <source>&lt;&lt; 10s</source>
        <translation>&lt;&lt; 10 s</translation>
    </message>
    <message>
        <source>10s &gt;&gt;</source>
        <translation>10 s &gt;&gt;</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Next Episode</source>
        <translation>Nächste Folge</translation>
    </message>
    <message>
        <source>Fullscreen</source>
        <translation>Vollbild</translation>
    </message>
    <message>
        <source>Info</source>
        <translation>Info</translation>
    </message>
    <message>
        <source>Audio</source>
        <translation>Audio</translation>
    </message>
    <message>
        <source>Subtitles</source>
        <translation>Untertitel</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Lautstärke</translation>
    </message>
    <message>
        <source>Vol:</source>
        <translation>Lautst.:</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Wiedergabe</translation>
    </message>
    <message>
        <source>Playing: %1</source>
        <translation>Wiedergabe: %1</translation>
    </message>
    <message>
        <source>Reconnecting to %1... (attempt %2)</source>
        <translation>Verbindung zu %1 wird wiederhergestellt... (Versuch %2)</translation>
    </message>
    <message>
        <source>%1 / %2</source>
        <translation>%1 / %2</translation>
    </message>
    <message>
        <source>Continue at %1</source>
        <translation>Fortsetzen bei %1</translation>
    </message>
</context>
<context>
    <name>PlaylistCopy</name>
    <message>
        <source>The playlist &quot;%1&quot; could not be copied: %2</source>
        <translation>Die Wiedergabeliste „%1“ konnte nicht kopiert werden: %2</translation>
    </message>
</context>
<context>
    <name>QLineEdit</name>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>&amp;Ausschneiden</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Einfügen</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Alles auswählen</translation>
    </message>
</context>
<context>
    <name>QPlatformTheme</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>&amp;Yes</source>
        <translation>&amp;Ja</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>&amp;Nein</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Verwerfen</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Anwenden</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Zurücksetzen</translation>
    </message>
</context>
<context>
    <name>QWidgetTextControl</name>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>&amp;Ausschneiden</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Einfügen</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Alles auswählen</translation>
    </message>
</context>
<context>
    <name>ReminderKeeper</name>
    <message>
        <source>%1 begins on %2.</source>
        <translation>%1 beginnt auf %2.</translation>
    </message>
    <message>
        <source>%1 began at %2 on %3.</source>
        <translation>%1 hat um %2 auf %3 begonnen.</translation>
    </message>
    <message>
        <source>Reminder</source>
        <translation>Erinnerung</translation>
    </message>
    <message>
        <source>Watch</source>
        <translation>Ansehen</translation>
    </message>
</context>
<context>
    <name>RestoreDialog</name>
    <message>
        <source>Replace: only what the backup holds stays</source>
        <translation>Ersetzen: Nur der Inhalt der Sicherung bleibt</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Wiederherstellen</translation>
    </message>
    <message>
        <source>Merge: add what is missing</source>
        <translation>Zusammenführen: Fehlendes hinzufügen</translation>
    </message>
    <message>
        <source>Sources:</source>
        <translation>Quellen:</translation>
    </message>
    <message>
        <source>Favorites:</source>
        <translation>Favoriten:</translation>
    </message>
    <message>
        <source>Recently watched:</source>
        <translation>Zuletzt gesehen:</translation>
    </message>
    <message>
        <source>Positions and watched marks:</source>
        <translation>Positionen und Gesehen-Markierungen:</translation>
    </message>
    <message>
        <source>Hidden categories:</source>
        <translation>Ausgeblendete Kategorien:</translation>
    </message>
    <message>
        <source>Settings of programme guides:</source>
        <translation>Einstellungen der TV-Programme:</translation>
    </message>
    <message>
        <source>Guide channels that were set by hand:</source>
        <translation>Von Hand zugeordnete Sender im TV-Programm:</translation>
    </message>
    <message>
        <source>Reminders:</source>
        <translation>Erinnerungen:</translation>
    </message>
    <message>
        <source>Preferred languages:</source>
        <translation>Bevorzugte Sprachen:</translation>
    </message>
    <message>
        <source>no change</source>
        <translation>keine Änderung</translation>
    </message>
    <message>
        <source>%1 added, %2 changed, %3 removed</source>
        <translation>%1 hinzugefügt, %2 geändert, %3 entfernt</translation>
    </message>
    <message>
        <source>The backup has no passwords and keys. Enter them afterwards with &quot;Edit Source...&quot; for: %1</source>
        <translation>Die Sicherung enthält keine Passwörter und Schlüssel. Geben Sie sie danach mit „Quelle bearbeiten...“ ein für: %1</translation>
    </message>
    <message>
        <source>The backup has no playlist files. Choose them afterwards with &quot;Edit Source...&quot; for: %1</source>
        <translation>Die Sicherung enthält keine Dateien von Wiedergabelisten. Wählen Sie sie danach mit „Quelle bearbeiten...“ aus für: %1</translation>
    </message>
    <message>
        <source>The backup has no passwords in addresses of guides. Enter them afterwards with &quot;Programme Guide...&quot; for: %1</source>
        <translation>Die Sicherung enthält keine Passwörter in Adressen von TV-Programmen. Geben Sie sie danach mit „TV-Programm...“ ein für: %1</translation>
    </message>
</context>
<context>
    <name>ScheduleDialog</name>
    <message>
        <source>Watch</source>
        <translation>Ansehen</translation>
    </message>
    <message>
        <source>Watch from Start</source>
        <translation>Von Anfang an ansehen</translation>
    </message>
    <message>
        <source>Schedule of %1</source>
        <translation>Sendeplan von %1</translation>
    </message>
    <message>
        <source>Day</source>
        <translation>Tag</translation>
    </message>
    <message>
        <source>Programmes</source>
        <translation>Sendungen</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Beschreibung</translation>
    </message>
    <message>
        <source>The guide&apos;s channel was guessed from the name: %1</source>
        <translation>Der Sender im TV-Programm wurde anhand des Namens vermutet: %1</translation>
    </message>
    <message>
        <source>Remove Reminder</source>
        <translation>Nicht erinnern</translation>
    </message>
    <message>
        <source>Remind Me</source>
        <translation>Erinnern</translation>
    </message>
    <message>
        <source>Loading the schedule...</source>
        <translation>Sendeplan wird geladen...</translation>
    </message>
    <message>
        <source>The guide has no programmes of this channel.</source>
        <translation>Das TV-Programm enthält keine Sendungen dieses Senders.</translation>
    </message>
    <message>
        <source>The guide has no programmes of this day.</source>
        <translation>Das TV-Programm enthält keine Sendungen dieses Tages.</translation>
    </message>
</context>
<context>
    <name>ScheduleItem</name>
    <message>
        <source>On Now</source>
        <translation>Läuft gerade</translation>
    </message>
    <message>
        <source>In the Archive</source>
        <translation>Im Archiv</translation>
    </message>
    <message>
        <source>Reminder Set</source>
        <translation>Erinnerung gesetzt</translation>
    </message>
</context>
<context>
    <name>SleepInhibitor</name>
    <message>
        <source>Playing</source>
        <translation>Wiedergabe läuft</translation>
    </message>
</context>
<context>
    <name>SourceBar</name>
    <message>
        <source>More</source>
        <translation>Mehr</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Quelle</translation>
    </message>
    <message>
        <source>Add Source...</source>
        <translation>Quelle hinzufügen...</translation>
    </message>
    <message>
        <source>Edit Source...</source>
        <translation>Quelle bearbeiten...</translation>
    </message>
    <message>
        <source>Refresh Playlist</source>
        <translation>Wiedergabeliste aktualisieren</translation>
    </message>
    <message>
        <source>Source:</source>
        <translation>Quelle:</translation>
    </message>
    <message>
        <source>Fetch the catalog of the source again</source>
        <translation>Den Katalog der Quelle erneut abrufen</translation>
    </message>
</context>
<context>
    <name>SourceDialog</name>
    <message>
        <source>Edit Source</source>
        <translation>Quelle bearbeiten</translation>
    </message>
    <message>
        <source>Add Source</source>
        <translation>Quelle hinzufügen</translation>
    </message>
    <message>
        <source>M3U Playlist</source>
        <translation>M3U-Wiedergabeliste</translation>
    </message>
    <message>
        <source>Xtream Codes</source>
        <translation>Xtream Codes</translation>
    </message>
    <message>
        <source>Zevrino</source>
        <translation>Zevrino</translation>
    </message>
    <message>
        <source>Source Type</source>
        <translation>Art der Quelle</translation>
    </message>
    <message>
        <source>Delete Source</source>
        <translation>Quelle löschen</translation>
    </message>
    <message>
        <source>Source Type:</source>
        <translation>Art der Quelle:</translation>
    </message>
    <message>
        <source>http://example.com/playlist.m3u or a local file path</source>
        <translation>http://example.com/playlist.m3u oder ein lokaler Dateipfad</translation>
    </message>
    <message>
        <source>Playlist URL/File</source>
        <translation>URL/Datei der Wiedergabeliste</translation>
    </message>
    <message>
        <source>Upload File...</source>
        <translation>Datei hochladen...</translation>
    </message>
    <message>
        <source>Name:</source>
        <translation>Name:</translation>
    </message>
    <message>
        <source>Playlist URL/File:</source>
        <translation>URL/Datei der Liste:</translation>
    </message>
    <message>
        <source>http://example.com:8080</source>
        <translation>http://example.com:8080</translation>
    </message>
    <message>
        <source>Test Connection</source>
        <translation>Verbindung testen</translation>
    </message>
    <message>
        <source>Server URL:</source>
        <translation>Server-URL:</translation>
    </message>
    <message>
        <source>Username:</source>
        <translation>Benutzername:</translation>
    </message>
    <message>
        <source>Password:</source>
        <translation>Passwort:</translation>
    </message>
    <message>
        <source>Live Stream Format:</source>
        <translation>Format der Livestreams:</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Passwort</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Anzeigen</translation>
    </message>
    <message>
        <source>Your Zevrino subscription key</source>
        <translation>Ihr Zevrino-Abonnementschlüssel</translation>
    </message>
    <message>
        <source>Subscription Key:</source>
        <translation>Abonnementschlüssel:</translation>
    </message>
    <message>
        <source>Upload M3U Playlist</source>
        <translation>M3U-Wiedergabeliste hochladen</translation>
    </message>
    <message>
        <source>Playlists (*.m3u *.m3u8);;All Files (*)</source>
        <translation>Wiedergabelisten (*.m3u *.m3u8);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Testing...</source>
        <translation>Wird getestet...</translation>
    </message>
    <message>
        <source>Connection OK</source>
        <translation>Verbindung in Ordnung</translation>
    </message>
    <message>
        <source>Failed: %1</source>
        <translation>Fehlgeschlagen: %1</translation>
    </message>
    <message>
        <source>Delete source &quot;%1&quot;? This cannot be undone.</source>
        <translation>Quelle „%1“ löschen? Das kann nicht rückgängig gemacht werden.</translation>
    </message>
</context>
<context>
    <name>SourceOptionsDialog</name>
    <message>
        <source>Source Options</source>
        <translation>Quellenoptionen</translation>
    </message>
    <message>
        <source>Source: %1</source>
        <translation>Quelle: %1</translation>
    </message>
    <message>
        <source>The usual one</source>
        <translation>Der übliche</translation>
    </message>
    <message>
        <source>The name under which the player asks this source for its catalog, its guide and its streams. Only some providers want a certain one. A playlist can name another one for a channel.</source>
        <translation>Der Name, unter dem der Player diese Quelle nach ihrem Katalog, ihrem TV-Programm und ihren Streams fragt. Nur manche Anbieter verlangen einen bestimmten. Eine Wiedergabeliste kann für einen Sender einen anderen nennen.</translation>
    </message>
    <message>
        <source>&amp;User agent:</source>
        <translation>&amp;User-Agent:</translation>
    </message>
    <message>
        <source>A user agent has at most 2048 characters: letters from A to Z, digits, blanks and the other characters of a plain English keyboard.</source>
        <translation>Ein User-Agent hat höchstens 2048 Zeichen: Buchstaben von A bis Z, Ziffern, Leerzeichen und die übrigen Zeichen einer einfachen englischen Tastatur.</translation>
    </message>
</context>
<context>
    <name>StreamInfoDialog</name>
    <message>
        <source>Stream Info</source>
        <translation>Stream-Informationen</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>Aktualisieren</translation>
    </message>
</context>
<context>
    <name>TabLibrary</name>
    <message>
        <source>Removed from Recently Watched</source>
        <translation>Aus „Zuletzt gesehen“ entfernt</translation>
    </message>
    <message>
        <source>Removed from Favorites</source>
        <translation>Aus Favoriten entfernt</translation>
    </message>
    <message>
        <source>Marked as Watched</source>
        <translation>Als gesehen markiert</translation>
    </message>
    <message>
        <source>Marked as Unwatched</source>
        <translation>Als ungesehen markiert</translation>
    </message>
    <message>
        <source>Category Hidden</source>
        <translation>Kategorie ausgeblendet</translation>
    </message>
</context>
<context>
    <name>TrackMenus</name>
    <message>
        <source>Disable</source>
        <translation>Deaktivieren</translation>
    </message>
    <message>
        <source>Load Subtitle File...</source>
        <translation>Untertiteldatei laden...</translation>
    </message>
    <message>
        <source>No audio tracks</source>
        <translation>Keine Audiospuren</translation>
    </message>
    <message>
        <source>Load Subtitle File</source>
        <translation>Untertiteldatei laden</translation>
    </message>
    <message>
        <source>Subtitles (*.srt *.ass *.ssa *.sub *.vtt);;All Files (*)</source>
        <translation>Untertitel (*.srt *.ass *.ssa *.sub *.vtt);;Alle Dateien (*)</translation>
    </message>
</context>
<context>
    <name>UndoBar</name>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
</context>
<context>
    <name>VlcPlayer</name>
    <message>
        <source>The stream stopped advancing for %1 seconds.</source>
        <translation>Der Stream ist seit %1 Sekunden nicht vorangekommen.</translation>
    </message>
    <message>
        <source>Could not create media for URL: %1</source>
        <translation>Für diese URL konnte kein Medium erzeugt werden: %1</translation>
    </message>
    <message>
        <source>Playback failed to start for: %1</source>
        <translation>Die Wiedergabe konnte nicht gestartet werden: %1</translation>
    </message>
    <message>
        <source>libVLC encountered an error while streaming.</source>
        <translation>libVLC ist beim Streamen auf einen Fehler gestoßen.</translation>
    </message>
    <message>
        <source>The live stream stopped sending data.</source>
        <translation>Der Livestream sendet keine Daten mehr.</translation>
    </message>
    <message>
        <source>Reached the end of the stream (this can also happen if a seek landed somewhere the stream couldn&apos;t resume from).</source>
        <translation>Das Ende des Streams wurde erreicht (das kann auch geschehen, wenn beim Springen eine Stelle getroffen wurde, von der aus der Stream nicht fortgesetzt werden konnte).</translation>
    </message>
    <message>
        <source>Disable</source>
        <translation>Deaktivieren</translation>
    </message>
    <message>
        <source>Track %1</source>
        <translation>Spur %1</translation>
    </message>
    <message>
        <source>Video codec: %1
Resolution: %2x%3
Frame rate: %4 fps

</source>
        <translation>Video-Codec: %1
Auflösung: %2x%3
Bildrate: %4 fps

</translation>
    </message>
    <message>
        <source>Audio codec: %1
Sample rate: %2 Hz
Channels: %3

</source>
        <translation>Audio-Codec: %1
Abtastrate: %2 Hz
Kanäle: %3

</translation>
    </message>
    <message>
        <source>Input bitrate: %1 kbps
Demux bitrate: %2 kbps
Decoded video blocks: %3
Decoded audio blocks: %4
Displayed frames: %5   Lost frames: %6
</source>
        <translation>Eingangsbitrate: %1 kbps
Demux-Bitrate: %2 kbps
Dekodierte Videoblöcke: %3
Dekodierte Audioblöcke: %4
Angezeigte Bilder: %5   Verlorene Bilder: %6
</translation>
    </message>
    <message>
        <source>No player.</source>
        <translation>Kein Player.</translation>
    </message>
    <message>
        <source>No media loaded.</source>
        <translation>Kein Medium geladen.</translation>
    </message>
    <message>
        <source>Audio tracks:
</source>
        <translation>Audiospuren:
</translation>
    </message>
    <message>
        <source>Subtitle tracks:
</source>
        <translation>Untertitelspuren:
</translation>
    </message>
    <message>
        <source>No track information available yet.</source>
        <translation>Noch keine Informationen zu Spuren verfügbar.</translation>
    </message>
</context>
<context>
    <name>XtreamClient</name>
    <message>
        <source>Could not reach server or invalid response</source>
        <translation>Server nicht erreichbar oder Antwort ungültig</translation>
    </message>
    <message>
        <source>Authentication failed - check server URL, username, and password</source>
        <translation>Anmeldung fehlgeschlagen - prüfen Sie Server-URL, Benutzername und Passwort</translation>
    </message>
</context>
<context>
    <name>ZevrinoClient</name>
    <message>
        <source>Invalid response from server</source>
        <translation>Ungültige Antwort vom Server</translation>
    </message>
    <message>
        <source>Subscription could not be resolved</source>
        <translation>Das Abonnement konnte nicht aufgelöst werden</translation>
    </message>
    <message>
        <source>Server response was missing credentials</source>
        <translation>In der Antwort des Servers fehlten die Zugangsdaten</translation>
    </message>
    <message>
        <source>Could not reach server: %1</source>
        <translation>Server nicht erreichbar: %1</translation>
    </message>
</context>
</TS>
