<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pl" sourcelanguage="en">
<context>
    <name>AccountInformationDialog</name>
    <message>
        <source>Account Information</source>
        <translation>Informacje o koncie</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Źródło</translation>
    </message>
    <message>
        <source>Asking the server...</source>
        <translation>Wysyłanie zapytania do serwera...</translation>
    </message>
    <message>
        <source>The server could not be reached, or its answer cannot be read.</source>
        <translation>Nie można połączyć się z serwerem lub nie można odczytać jego odpowiedzi.</translation>
    </message>
    <message>
        <source>The server does not accept this account, or tells nothing about it.</source>
        <translation>Serwer nie akceptuje tego konta lub nic o nim nie podaje.</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Nieznane</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Stan</translation>
    </message>
    <message>
        <source>Expires</source>
        <translation>Wygasa</translation>
    </message>
    <message>
        <source>Never</source>
        <translation>Nigdy</translation>
    </message>
    <message>
        <source>Trial</source>
        <translation>Wersja próbna</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Tak</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nie</translation>
    </message>
    <message>
        <source>Connections in use</source>
        <translation>Używane połączenia</translation>
    </message>
    <message>
        <source>Connections allowed</source>
        <translation>Dozwolone połączenia</translation>
    </message>
    <message>
        <source>Formats</source>
        <translation>Formaty</translation>
    </message>
    <message>
        <source>Time zone of the server</source>
        <translation>Strefa czasowa serwera</translation>
    </message>
</context>
<context>
    <name>BrowseTab</name>
    <message>
        <source>Live TV</source>
        <translation>TV na żywo</translation>
    </message>
    <message>
        <source>Search all channels...</source>
        <translation>Szukaj we wszystkich kanałach...</translation>
    </message>
    <message>
        <source>Channels</source>
        <translation>Kanały</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>Kanał</translation>
    </message>
    <message>
        <source>Movies</source>
        <translation>Filmy</translation>
    </message>
    <message>
        <source>Search all movies...</source>
        <translation>Szukaj we wszystkich filmach...</translation>
    </message>
    <message>
        <source>TV Shows</source>
        <translation>Seriale</translation>
    </message>
    <message>
        <source>Search all shows...</source>
        <translation>Szukaj we wszystkich serialach...</translation>
    </message>
    <message>
        <source>Shows</source>
        <translation>Seriale</translation>
    </message>
    <message>
        <source>Select a category:</source>
        <translation>Wybierz kategorię:</translation>
    </message>
    <message>
        <source>Categories</source>
        <translation>Kategorie</translation>
    </message>
    <message>
        <source>Search...</source>
        <translation>Szukaj...</translation>
    </message>
    <message>
        <source>Sort by</source>
        <translation>Sortuj według</translation>
    </message>
    <message>
        <source>Name (A-Z)</source>
        <translation>Nazwa (A-Z)</translation>
    </message>
    <message>
        <source>Recently Added</source>
        <translation>Ostatnio dodane</translation>
    </message>
    <message>
        <source>Rating</source>
        <translation>Ocena</translation>
    </message>
    <message>
        <source>&lt; Back to Categories</source>
        <translation>&lt; Wróć do kategorii</translation>
    </message>
    <message>
        <source>All Categories</source>
        <translation>Wszystkie kategorie</translation>
    </message>
    <message>
        <source>Search: &quot;%1&quot;</source>
        <translation>Wyszukiwanie: „%1”</translation>
    </message>
    <message>
        <source>Guide</source>
        <translation>Program TV</translation>
    </message>
    <message>
        <source>Show the programme guide</source>
        <translation>Pokaż program telewizyjny</translation>
    </message>
    <message>
        <source>Remove from Favorites</source>
        <translation>Usuń z ulubionych</translation>
    </message>
    <message>
        <source>Add to Favorites</source>
        <translation>Dodaj do ulubionych</translation>
    </message>
    <message>
        <source>Remove from List</source>
        <translation>Usuń z listy</translation>
    </message>
    <message>
        <source>Mark as Watched</source>
        <translation>Oznacz jako obejrzane</translation>
    </message>
    <message>
        <source>Mark as Unwatched</source>
        <translation>Oznacz jako nieobejrzane</translation>
    </message>
</context>
<context>
    <name>CatchUpPlayer</name>
    <message>
        <source>The archive does not tell how to play this programme.</source>
        <translation>Archiwum nie podaje, jak odtworzyć tę audycję.</translation>
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
        <translation>Ulubione</translation>
    </message>
    <message>
        <source>Continue Watching</source>
        <translation>Oglądaj dalej</translation>
    </message>
    <message>
        <source>Recently Watched</source>
        <translation>Ostatnio oglądane</translation>
    </message>
    <message>
        <source>All Categories</source>
        <translation>Wszystkie kategorie</translation>
    </message>
    <message>
        <source>Hidden</source>
        <translation>Ukryte</translation>
    </message>
    <message>
        <source>Unhide Category</source>
        <translation>Przestań ukrywać kategorię</translation>
    </message>
    <message>
        <source>Hide Category</source>
        <translation>Ukryj kategorię</translation>
    </message>
    <message>
        <source>Show Hidden Categories</source>
        <translation>Pokaż ukryte kategorie</translation>
    </message>
</context>
<context>
    <name>ClearHistoryDialog</name>
    <message>
        <source>Recently watched</source>
        <translation>Ostatnio oglądane</translation>
    </message>
    <message>
        <source>Positions and watched marks</source>
        <translation>Pozycje i oznaczenia obejrzanych</translation>
    </message>
    <message>
        <source>Clear History</source>
        <translation>Wyczyść historię</translation>
    </message>
    <message>
        <source>What goes, of all sources? Favorites and hidden categories stay.</source>
        <translation>Co usunąć ze wszystkich źródeł? Ulubione i ukryte kategorie pozostaną.</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Wyczyść</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>Subscription service: %1</source>
        <translation>Usługa subskrypcji: %1</translation>
    </message>
    <message>
        <source>A player for internet television.</source>
        <translation>Odtwarzacz telewizji internetowej.</translation>
    </message>
    <message>
        <source>Displays version information.</source>
        <translation>Wyświetla informacje o wersji.</translation>
    </message>
    <message>
        <source>Playlists, films and streams to open: files or URLs.</source>
        <translation>Playlisty, filmy i strumienie do otwarcia: pliki lub adresy URL.</translation>
    </message>
</context>
<context>
    <name>EntryMarks</name>
    <message>
        <source>Favorite</source>
        <translation>Ulubione</translation>
    </message>
    <message>
        <source>Watched</source>
        <translation>Obejrzane</translation>
    </message>
    <message>
        <source>%1 % watched</source>
        <translation>Obejrzano %1 %</translation>
    </message>
</context>
<context>
    <name>EntryTable</name>
    <message>
        <source>Move Up</source>
        <translation>Przesuń w górę</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>Przesuń w dół</translation>
    </message>
</context>
<context>
    <name>EpisodePage</name>
    <message>
        <source>&lt; Back to Shows</source>
        <translation>&lt; Wróć do seriali</translation>
    </message>
    <message>
        <source>Episodes</source>
        <translation>Odcinki</translation>
    </message>
    <message>
        <source>E%1 - %2</source>
        <translation>E%1 - %2</translation>
    </message>
    <message>
        <source>Season %1</source>
        <translation>Sezon %1</translation>
    </message>
    <message>
        <source>Mark as Watched</source>
        <translation>Oznacz jako obejrzane</translation>
    </message>
    <message>
        <source>Mark as Unwatched</source>
        <translation>Oznacz jako nieobejrzane</translation>
    </message>
</context>
<context>
    <name>GuideAddressList</name>
    <message>
        <source>Addresses of guides, the preferred one first</source>
        <translation>Adresy programów TV, preferowany na początku</translation>
    </message>
    <message>
        <source>Add Address...</source>
        <translation>Dodaj adres...</translation>
    </message>
    <message>
        <source>Add File...</source>
        <translation>Dodaj plik...</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Usuń</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>Przesuń w górę</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>Przesuń w dół</translation>
    </message>
    <message>
        <source>Add Account&apos;s Guide</source>
        <translation>Dodaj program TV konta</translation>
    </message>
    <message>
        <source>Add Playlist&apos;s Guide</source>
        <translation>Dodaj program TV playlisty</translation>
    </message>
    <message>
        <source>Add File</source>
        <translation>Dodaj plik</translation>
    </message>
    <message>
        <source>Guides (*.xml *.xmltv *.gz);;All Files (*)</source>
        <translation>Programy TV (*.xml *.xmltv *.gz);;Wszystkie pliki (*)</translation>
    </message>
</context>
<context>
    <name>GuideChannelDialog</name>
    <message>
        <source>Automatic: find it by its id and name</source>
        <translation>Automatycznie: znajdź według identyfikatora i nazwy</translation>
    </message>
    <message>
        <source>No guide for this channel</source>
        <translation>Brak programu TV dla tego kanału</translation>
    </message>
    <message>
        <source>This channel of the guide:</source>
        <translation>Ten kanał programu TV:</translation>
    </message>
    <message>
        <source>Guide Channel</source>
        <translation>Kanał programu TV</translation>
    </message>
    <message>
        <source>Channel: %1</source>
        <translation>Kanał: %1</translation>
    </message>
    <message>
        <source>Confirm Suggestion</source>
        <translation>Potwierdź sugestię</translation>
    </message>
    <message>
        <source>Found by the id that the source names: %1</source>
        <translation>Znaleziono według identyfikatora podanego przez źródło: %1</translation>
    </message>
    <message>
        <source>Found by the name that the source gives for the guide: %1</source>
        <translation>Znaleziono według nazwy, którą źródło podaje dla programu TV: %1</translation>
    </message>
    <message>
        <source>Found by the channel&apos;s name: %1</source>
        <translation>Znaleziono według nazwy kanału: %1</translation>
    </message>
    <message>
        <source>Suggested, since the names are alike: %1</source>
        <translation>Zasugerowano ze względu na podobne nazwy: %1</translation>
    </message>
    <message>
        <source>Search the guide&apos;s channels</source>
        <translation>Szukaj w kanałach programu TV</translation>
    </message>
    <message>
        <source>Search the guide&apos;s channels...</source>
        <translation>Szukaj w kanałach programu TV...</translation>
    </message>
    <message>
        <source>Channels of the guide</source>
        <translation>Kanały programu TV</translation>
    </message>
    <message>
        <source>No channel of the guide contains this text.</source>
        <translation>Żaden kanał programu TV nie zawiera tego tekstu.</translation>
    </message>
    <message>
        <source>Only the first %1 are shown. Type more of the name.</source>
        <translation>Liczba wyświetlonych początkowych wyników: %1. Wpisz więcej znaków nazwy.</translation>
    </message>
</context>
<context>
    <name>GuideDialog</name>
    <message>
        <source>Show a programme guide for this source</source>
        <translation>Pokazuj program TV dla tego źródła</translation>
    </message>
    <message>
        <source>Refresh every 12 hours</source>
        <translation>Odświeżaj co 12 godzin</translation>
    </message>
    <message>
        <source>Update Now</source>
        <translation>Aktualizuj teraz</translation>
    </message>
    <message>
        <source>Cancel Update</source>
        <translation>Anuluj aktualizację</translation>
    </message>
    <message>
        <source>Programme Guide</source>
        <translation>Program TV</translation>
    </message>
    <message>
        <source>Source: %1</source>
        <translation>Źródło: %1</translation>
    </message>
    <message>
        <source> hours</source>
        <translation> godz.</translation>
    </message>
    <message>
        <source>Where the guide comes from, in order of preference:</source>
        <translation>Skąd pochodzi program TV, w kolejności preferencji:</translation>
    </message>
    <message>
        <source>Shift all times by:</source>
        <translation>Przesuń wszystkie godziny o:</translation>
    </message>
    <message>
        <source>Progress of the update</source>
        <translation>Postęp aktualizacji</translation>
    </message>
</context>
<context>
    <name>GuideGrid</name>
    <message>
        <source>Programme guide</source>
        <translation>Program TV</translation>
    </message>
    <message>
        <source>in the archive</source>
        <translation>w archiwum</translation>
    </message>
    <message>
        <source>No information</source>
        <translation>Brak informacji</translation>
    </message>
</context>
<context>
    <name>GuideResult</name>
    <message>
        <source>The account&apos;s own guide</source>
        <translation>Własny program TV konta</translation>
    </message>
    <message>
        <source>The guide of the last update stays.</source>
        <translation>Pozostaje program TV z ostatniej aktualizacji.</translation>
    </message>
    <message>
        <source>The update was cancelled. The guide of the last update stays.</source>
        <translation>Aktualizacja została anulowana. Pozostaje program TV z ostatniej aktualizacji.</translation>
    </message>
    <message>
        <source>Last update: %1</source>
        <translation>Ostatnia aktualizacja: %1</translation>
    </message>
    <message>
        <source>Programmes: %1</source>
        <translation>Audycje: %1</translation>
    </message>
    <message>
        <source>Channels with a guide: %1 of %2</source>
        <translation>Kanały z programem TV: %1 z %2</translation>
    </message>
    <message>
        <source>Of these, only suggested: %1. Confirm or change them with &quot;Guide Channel...&quot; in a channel&apos;s menu.</source>
        <translation>W tym tylko sugerowane: %1. Potwierdź je lub zmień za pomocą polecenia „Kanał programu TV...” w menu kanału.</translation>
    </message>
    <message>
        <source>The last programme begins: %1</source>
        <translation>Ostatnia audycja zaczyna się: %1</translation>
    </message>
    <message>
        <source>%1 cannot be reached: %2</source>
        <translation>%1 jest nieosiągalny: %2</translation>
    </message>
    <message>
        <source>%1 cannot be opened: %2</source>
        <translation>Nie można otworzyć %1: %2</translation>
    </message>
    <message>
        <source>%1 is no guide. It may be a page or an error message.</source>
        <translation>%1 nie jest programem TV. Może to być strona lub komunikat o błędzie.</translation>
    </message>
    <message>
        <source>%1 is packed in a form other than gzip, which cannot be read.</source>
        <translation>%1 jest skompresowany w formacie innym niż gzip, którego nie można odczytać.</translation>
    </message>
    <message>
        <source>%1 is damaged and cannot be unpacked.</source>
        <translation>%1 jest uszkodzony i nie można go rozpakować.</translation>
    </message>
    <message>
        <source>%1 ends early. It was not taken.</source>
        <translation>%1 kończy się przedwcześnie i nie został użyty.</translation>
    </message>
    <message>
        <source>%1 is too large.</source>
        <translation>%1 jest za duży.</translation>
    </message>
    <message>
        <source>%1 has no programmes of the channels of this source.</source>
        <translation>%1 nie zawiera audycji z kanałów tego źródła.</translation>
    </message>
    <message>
        <source>%1 cannot be stored: %2</source>
        <translation>Nie można zapisać %1: %2</translation>
    </message>
    <message>
        <source>What the source tells of its channels cannot be read: %1</source>
        <translation>Nie można odczytać informacji źródła o jego kanałach: %1</translation>
    </message>
    <message numerus="yes">
        <source>%1: %Ln programmes. The time zone of some is not known; they may be shown at the wrong hour.</source>
        <translation>
            <numerusform>%1: %Ln audycja. Strefa czasowa niektórych nie jest znana; mogą być pokazywane o niewłaściwej godzinie.</numerusform>
            <numerusform>%1: %Ln audycje. Strefa czasowa niektórych nie jest znana; mogą być pokazywane o niewłaściwej godzinie.</numerusform>
            <numerusform>%1: %Ln audycji. Strefa czasowa niektórych nie jest znana; mogą być pokazywane o niewłaściwej godzinie.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1: %Ln programmes.</source>
        <translation>
            <numerusform>%1: %Ln audycja.</numerusform>
            <numerusform>%1: %Ln audycje.</numerusform>
            <numerusform>%1: %Ln audycji.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>GuideSearchList</name>
    <message>
        <source>Programmes found</source>
        <translation>Znalezione audycje</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Godzina</translation>
    </message>
    <message>
        <source>Programme</source>
        <translation>Audycja</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>Kanał</translation>
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
        <translation>Wczoraj</translation>
    </message>
    <message>
        <source>Today</source>
        <translation>Dzisiaj</translation>
    </message>
    <message>
        <source>Tomorrow</source>
        <translation>Jutro</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <translation>%1 %2</translation>
    </message>
    <message>
        <source>Yesterday %1</source>
        <translation>Wczoraj %1</translation>
    </message>
    <message>
        <source>Today %1</source>
        <translation>Dzisiaj %1</translation>
    </message>
    <message>
        <source>Tomorrow %1</source>
        <translation>Jutro %1</translation>
    </message>
</context>
<context>
    <name>GuideView</name>
    <message>
        <source>Now</source>
        <translation>Teraz</translation>
    </message>
    <message>
        <source>Show what runs now</source>
        <translation>Pokaż, co jest teraz nadawane</translation>
    </message>
    <message>
        <source>Previous day</source>
        <translation>Poprzedni dzień</translation>
    </message>
    <message>
        <source>Day</source>
        <translation>Dzień</translation>
    </message>
    <message>
        <source>Next day</source>
        <translation>Następny dzień</translation>
    </message>
    <message>
        <source>Search programmes...</source>
        <translation>Szukaj audycji...</translation>
    </message>
    <message>
        <source>No programme found.</source>
        <translation>Nie znaleziono audycji.</translation>
    </message>
    <message>
        <source>%1  %2 (in the archive)</source>
        <translation>%1  %2 (w archiwum)</translation>
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
        <translation>Nie można zapisać ulubionych i pozycji: %1</translation>
    </message>
    <message>
        <source>Favorites and positions were stored by a newer version of this program. They stay as they are, and changes are not stored.</source>
        <translation>Ulubione i pozycje zostały zapisane przez nowszą wersję tego programu. Pozostają bez zmian, a zmiany nie są zapisywane.</translation>
    </message>
    <message>
        <source>The file with your favorites and positions was damaged. It was kept as &quot;%1&quot;, and a new one was begun.</source>
        <translation>Plik z ulubionymi i pozycjami był uszkodzony. Zachowano go jako „%1” i utworzono nowy.</translation>
    </message>
</context>
<context>
    <name>LibraryBackup</name>
    <message>
        <source>This file is not a backup of Vantiro Player, or it is damaged.</source>
        <translation>Ten plik nie jest kopią zapasową programu Vantiro Player lub jest uszkodzony.</translation>
    </message>
    <message>
        <source>This backup was made by a newer version of Vantiro Player.</source>
        <translation>Ta kopia zapasowa została utworzona przez nowszą wersję programu Vantiro Player.</translation>
    </message>
    <message>
        <source>This backup is damaged: its part &quot;%1&quot; cannot be read.</source>
        <translation>Ta kopia zapasowa jest uszkodzona: nie można odczytać jej części „%1”.</translation>
    </message>
    <message>
        <source>The backup cannot be written: %1</source>
        <translation>Nie można zapisać kopii zapasowej: %1</translation>
    </message>
    <message>
        <source>The backup cannot be read: %1</source>
        <translation>Nie można odczytać kopii zapasowej: %1</translation>
    </message>
</context>
<context>
    <name>LoadingOverlay</name>
    <message>
        <source>Loading...</source>
        <translation>Ładowanie...</translation>
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
        <translation>Podaj prawidłowy klucz subskrypcji.</translation>
    </message>
    <message>
        <source>Please provide a valid URL/path.</source>
        <translation>Podaj prawidłowy adres URL lub ścieżkę.</translation>
    </message>
    <message>
        <source>%1 until %2</source>
        <translation>%1 do %2</translation>
    </message>
    <message>
        <source>Next: %1 %2</source>
        <translation>Następnie: %1 %2</translation>
    </message>
    <message>
        <source>Watch from Start</source>
        <translation>Oglądaj od początku</translation>
    </message>
    <message>
        <source>Schedule</source>
        <translation>Ramówka</translation>
    </message>
    <message>
        <source>Guide Channel...</source>
        <translation>Kanał programu TV...</translation>
    </message>
    <message>
        <source>Favorites and Positions</source>
        <translation>Ulubione i pozycje</translation>
    </message>
    <message>
        <source>Removed from Favorites</source>
        <translation>Usunięto z ulubionych</translation>
    </message>
    <message>
        <source>Added to Favorites</source>
        <translation>Dodano do ulubionych</translation>
    </message>
    <message>
        <source>Marked as Watched</source>
        <translation>Oznaczono jako obejrzane</translation>
    </message>
    <message>
        <source>Marked as Unwatched</source>
        <translation>Oznaczono jako nieobejrzane</translation>
    </message>
    <message>
        <source>History cleared</source>
        <translation>Wyczyszczono historię</translation>
    </message>
    <message>
        <source>Back Up</source>
        <translation>Kopia zapasowa</translation>
    </message>
    <message>
        <source>The backup holds your sources, favorites, history, positions, hidden categories, the settings of programme guides and reminders.</source>
        <translation>Kopia zapasowa zawiera źródła, ulubione, historię, pozycje, ukryte kategorie, ustawienia programów TV i przypomnienia.</translation>
    </message>
    <message>
        <source>The backup holds your sources, favorites, history, positions and hidden categories.</source>
        <translation>Kopia zapasowa zawiera źródła, ulubione, historię, pozycje i ukryte kategorie.</translation>
    </message>
    <message>
        <source>Whoever has the file can read the passwords and keys in it.</source>
        <translation>Każdy, kto ma ten plik, może odczytać zawarte w nim hasła i klucze.</translation>
    </message>
    <message>
        <source>Include passwords and keys</source>
        <translation>Dołącz hasła i klucze</translation>
    </message>
    <message>
        <source>Backups (*.json);;All Files (*)</source>
        <translation>Kopie zapasowe (*.json);;Wszystkie pliki (*)</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Przywróć</translation>
    </message>
    <message>
        <source>The backup could not be restored. Everything is as it was.</source>
        <translation>Nie można przywrócić kopii zapasowej. Wszystko pozostało bez zmian.</translation>
    </message>
    <message>
        <source>Vantiro Player %1
A player for internet television.
Copyright 2026 Vantiro. All rights reserved.

With Qt %2 (LGPL 3), libVLC %3 (LGPL 2.1 or later) and RapidJSON (MIT). The texts of these licences come with the package.</source>
        <translation>Vantiro Player %1
Odtwarzacz telewizji internetowej.
Copyright 2026 Vantiro. Wszelkie prawa zastrzeżone.

Z Qt %2 (LGPL 3), libVLC %3 (LGPL 2.1 lub nowsza) i RapidJSON (MIT). Teksty tych licencji są dołączone do pakietu.</translation>
    </message>
    <message>
        <source>About</source>
        <translation>O programie</translation>
    </message>
    <message>
        <source>Playback Error</source>
        <translation>Błąd odtwarzania</translation>
    </message>
    <message>
        <source>Zevrino</source>
        <translation>Zevrino</translation>
    </message>
    <message>
        <source>Failed to load subscription: %1</source>
        <translation>Nie można załadować subskrypcji: %1</translation>
    </message>
    <message>
        <source>Load Playlist</source>
        <translation>Wczytaj playlistę</translation>
    </message>
    <message>
        <source>Failed to open file: %1</source>
        <translation>Nie można otworzyć pliku: %1</translation>
    </message>
    <message>
        <source>Failed to download playlist: %1</source>
        <translation>Nie można pobrać playlisty: %1</translation>
    </message>
    <message>
        <source>No channel %1</source>
        <translation>Brak kanału %1</translation>
    </message>
    <message>
        <source>Leave fullscreen first</source>
        <translation>Najpierw wyjdź z pełnego ekranu</translation>
    </message>
    <message>
        <source>Shift+P or Escape leaves the small window</source>
        <translation>Shift+P lub Esc zamyka małe okno</translation>
    </message>
    <message>
        <source>It is not a film or a stream that can be played.</source>
        <translation>To nie jest film ani strumień, który można odtworzyć.</translation>
    </message>
    <message>
        <source>Open File</source>
        <translation>Otwórz plik</translation>
    </message>
    <message>
        <source>Videos and Playlists (%1);;All Files (*)</source>
        <translation>Filmy i playlisty (%1);;Wszystkie pliki (*)</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Otwórz</translation>
    </message>
    <message>
        <source>This could not be opened:</source>
        <translation>Nie można otworzyć:</translation>
    </message>
</context>
<context>
    <name>MoreMenu</name>
    <message>
        <source>Clear History...</source>
        <translation>Wyczyść historię...</translation>
    </message>
    <message>
        <source>More</source>
        <translation>Więcej</translation>
    </message>
    <message>
        <source>Back Up...</source>
        <translation>Kopia zapasowa...</translation>
    </message>
    <message>
        <source>Restore...</source>
        <translation>Przywróć...</translation>
    </message>
    <message>
        <source>Programme Guide...</source>
        <translation>Program TV...</translation>
    </message>
    <message>
        <source>Account Information...</source>
        <translation>Informacje o koncie...</translation>
    </message>
    <message>
        <source>About</source>
        <translation>O programie</translation>
    </message>
    <message>
        <source>Open File...</source>
        <translation>Otwórz plik...</translation>
    </message>
    <message>
        <source>Open Location...</source>
        <translation>Otwórz adres...</translation>
    </message>
    <message>
        <source>Source Options...</source>
        <translation>Opcje źródła...</translation>
    </message>
</context>
<context>
    <name>OnNow</name>
    <message>
        <source>Now</source>
        <translation>Teraz</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Następnie</translation>
    </message>
    <message>
        <source>This guide channel is a suggestion.</source>
        <translation>Ten kanał programu TV jest sugestią.</translation>
    </message>
</context>
<context>
    <name>OpenLocationDialog</name>
    <message>
        <source>Open Location</source>
        <translation>Otwórz adres</translation>
    </message>
    <message>
        <source>http://example.com/stream.ts or a local file path</source>
        <translation>http://example.com/stream.ts lub ścieżka do pliku lokalnego</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Otwórz</translation>
    </message>
    <message>
        <source>Address:</source>
        <translation>Adres:</translation>
    </message>
</context>
<context>
    <name>OpenTarget</name>
    <message>
        <source>The file does not exist.</source>
        <translation>Plik nie istnieje.</translation>
    </message>
    <message>
        <source>It is a folder.</source>
        <translation>To jest folder.</translation>
    </message>
    <message>
        <source>Addresses that begin with &quot;%1:&quot; are not supported.</source>
        <translation>Adresy zaczynające się od „%1:” nie są obsługiwane.</translation>
    </message>
    <message>
        <source>The address names no server.</source>
        <translation>Adres nie wskazuje serwera.</translation>
    </message>
</context>
<context>
    <name>PlaybackErrorBox</name>
    <message>
        <source>Playback Error</source>
        <translation>Błąd odtwarzania</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Ponów próbę</translation>
    </message>
</context>
<context>
    <name>PlaybackSession</name>
    <message>
        <source>Playback stopped: %1</source>
        <translation>Odtwarzanie zatrzymane: %1</translation>
    </message>
    <message>
        <source>The archive sent nothing that plays.</source>
        <translation>Archiwum nie wysłało niczego, co można odtworzyć.</translation>
    </message>
    <message>
        <source>The archive stopped sending data.</source>
        <translation>Archiwum przestało wysyłać dane.</translation>
    </message>
</context>
<context>
    <name>PlayerCommands</name>
    <message>
        <source>Picture saved: %1</source>
        <translation>Zapisano obraz: %1</translation>
    </message>
    <message>
        <source>The picture could not be saved in %1.</source>
        <translation>Nie można zapisać obrazu w %1.</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Następny</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>Poprzedni</translation>
    </message>
    <message>
        <source>Last Channel</source>
        <translation>Ostatni kanał</translation>
    </message>
    <message>
        <source>Slower</source>
        <translation>Wolniej</translation>
    </message>
    <message>
        <source>Faster</source>
        <translation>Szybciej</translation>
    </message>
    <message>
        <source>Normal Speed</source>
        <translation>Normalna prędkość</translation>
    </message>
    <message>
        <source>Sound Earlier</source>
        <translation>Dźwięk wcześniej</translation>
    </message>
    <message>
        <source>Sound Later</source>
        <translation>Dźwięk później</translation>
    </message>
    <message>
        <source>Subtitles Earlier</source>
        <translation>Napisy wcześniej</translation>
    </message>
    <message>
        <source>Subtitles Later</source>
        <translation>Napisy później</translation>
    </message>
    <message>
        <source>Next Aspect Ratio</source>
        <translation>Następne proporcje obrazu</translation>
    </message>
    <message>
        <source>Next Crop</source>
        <translation>Następne kadrowanie</translation>
    </message>
    <message>
        <source>Next Zoom</source>
        <translation>Następne powiększenie</translation>
    </message>
    <message>
        <source>Deinterlace</source>
        <translation>Usuwaj przeplot</translation>
    </message>
    <message>
        <source>Next Audio Track</source>
        <translation>Następna ścieżka dźwiękowa</translation>
    </message>
    <message>
        <source>Next Subtitle Track</source>
        <translation>Następna ścieżka napisów</translation>
    </message>
    <message>
        <source>Save Picture</source>
        <translation>Zapisz obraz</translation>
    </message>
    <message>
        <source>Always on Top</source>
        <translation>Zawsze na wierzchu</translation>
    </message>
    <message>
        <source>Small Window</source>
        <translation>Małe okno</translation>
    </message>
    <message>
        <source>Nothing playing</source>
        <translation>Nic nie jest odtwarzane</translation>
    </message>
    <message>
        <source>Channel %1</source>
        <translation>Kanał %1</translation>
    </message>
    <message>
        <source>A live channel has no other speed</source>
        <translation>Kanał na żywo nie ma innej prędkości</translation>
    </message>
    <message>
        <source>Speed: %1x</source>
        <translation>Prędkość: %1x</translation>
    </message>
    <message>
        <source>Audio delay: %1 ms</source>
        <translation>Opóźnienie dźwięku: %1 ms</translation>
    </message>
    <message>
        <source>Subtitle delay: %1 ms</source>
        <translation>Opóźnienie napisów: %1 ms</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>Domyślne</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>Fit to Window</source>
        <translation>Dopasuj do okna</translation>
    </message>
    <message>
        <source>Aspect ratio: %1</source>
        <translation>Proporcje obrazu: %1</translation>
    </message>
    <message>
        <source>Crop: %1</source>
        <translation>Kadrowanie: %1</translation>
    </message>
    <message>
        <source>Zoom: %1</source>
        <translation>Powiększenie: %1</translation>
    </message>
    <message>
        <source>Deinterlacing: on</source>
        <translation>Usuwanie przeplotu: wł.</translation>
    </message>
    <message>
        <source>Deinterlacing: off</source>
        <translation>Usuwanie przeplotu: wył.</translation>
    </message>
    <message>
        <source>No audio tracks</source>
        <translation>Brak ścieżek dźwiękowych</translation>
    </message>
    <message>
        <source>Audio track: %1</source>
        <translation>Ścieżka dźwiękowa: %1</translation>
    </message>
    <message>
        <source>No subtitles</source>
        <translation>Brak napisów</translation>
    </message>
    <message>
        <source>Subtitles: %1</source>
        <translation>Napisy: %1</translation>
    </message>
    <message>
        <source>Subtitles: off</source>
        <translation>Napisy: wył.</translation>
    </message>
    <message>
        <source>Always on top: on</source>
        <translation>Zawsze na wierzchu: wł.</translation>
    </message>
    <message>
        <source>Always on top: off</source>
        <translation>Zawsze na wierzchu: wył.</translation>
    </message>
</context>
<context>
    <name>PlayerMenu</name>
    <message>
        <source>Aspect Ratio</source>
        <translation>Proporcje obrazu</translation>
    </message>
    <message>
        <source>Crop</source>
        <translation>Kadrowanie</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>Powiększenie</translation>
    </message>
    <message>
        <source>Pause or Play</source>
        <translation>Pauza lub odtwarzanie</translation>
    </message>
    <message>
        <source>Fullscreen</source>
        <translation>Pełny ekran</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Prędkość</translation>
    </message>
    <message>
        <source>Delays</source>
        <translation>Opóźnienia</translation>
    </message>
</context>
<context>
    <name>PlayerPanel</name>
    <message>
        <source>Nothing playing</source>
        <translation>Nic nie jest odtwarzane</translation>
    </message>
    <message>
        <source>Player</source>
        <translation>Odtwarzacz</translation>
    </message>
    <message>
        <source>Video</source>
        <translation>Obraz</translation>
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
        <translation>Pozycja</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pauza</translation>
    </message>
    <message>
        <source>Next Episode</source>
        <translation>Następny odcinek</translation>
    </message>
    <message>
        <source>Fullscreen</source>
        <translation>Pełny ekran</translation>
    </message>
    <message>
        <source>Info</source>
        <translation>Informacje</translation>
    </message>
    <message>
        <source>Audio</source>
        <translation>Dźwięk</translation>
    </message>
    <message>
        <source>Subtitles</source>
        <translation>Napisy</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Głośność</translation>
    </message>
    <message>
        <source>Vol:</source>
        <translation>Głośn.:</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Odtwarzaj</translation>
    </message>
    <message>
        <source>Playing: %1</source>
        <translation>Odtwarzanie: %1</translation>
    </message>
    <message>
        <source>Reconnecting to %1... (attempt %2)</source>
        <translation>Ponowne łączenie z %1... (próba %2)</translation>
    </message>
    <message>
        <source>%1 / %2</source>
        <translation>%1 / %2</translation>
    </message>
    <message>
        <source>Continue at %1</source>
        <translation>Kontynuuj od %1</translation>
    </message>
</context>
<context>
    <name>PlaylistCopy</name>
    <message>
        <source>The playlist &quot;%1&quot; could not be copied: %2</source>
        <translation>Nie można skopiować playlisty „%1”: %2</translation>
    </message>
</context>
<context>
    <name>QLineEdit</name>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Cofnij</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Ponów</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>Wy&amp;tnij</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopiuj</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Wklej</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Usuń</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Zaznacz wszystko</translation>
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
        <translation>Zapisz</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Otwórz</translation>
    </message>
    <message>
        <source>&amp;Yes</source>
        <translation>&amp;Tak</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>&amp;Nie</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Ponów próbę</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Zamknij</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Anuluj</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Odrzuć</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Zastosuj</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Przywróć domyślne</translation>
    </message>
</context>
<context>
    <name>QWidgetTextControl</name>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Cofnij</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Ponów</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>Wy&amp;tnij</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopiuj</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Wklej</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Usuń</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Zaznacz wszystko</translation>
    </message>
</context>
<context>
    <name>ReminderKeeper</name>
    <message>
        <source>%1 begins on %2.</source>
        <translation>%1 zaczyna się na kanale %2.</translation>
    </message>
    <message>
        <source>%1 began at %2 on %3.</source>
        <translation>%1 – początek o %2 na kanale %3.</translation>
    </message>
    <message>
        <source>Reminder</source>
        <translation>Przypomnienie</translation>
    </message>
    <message>
        <source>Watch</source>
        <translation>Oglądaj</translation>
    </message>
</context>
<context>
    <name>RestoreDialog</name>
    <message>
        <source>Replace: only what the backup holds stays</source>
        <translation>Zastąp: pozostanie tylko zawartość kopii zapasowej</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Przywróć</translation>
    </message>
    <message>
        <source>Merge: add what is missing</source>
        <translation>Scal: dodaj to, czego brakuje</translation>
    </message>
    <message>
        <source>Sources:</source>
        <translation>Źródła:</translation>
    </message>
    <message>
        <source>Favorites:</source>
        <translation>Ulubione:</translation>
    </message>
    <message>
        <source>Recently watched:</source>
        <translation>Ostatnio oglądane:</translation>
    </message>
    <message>
        <source>Positions and watched marks:</source>
        <translation>Pozycje i oznaczenia obejrzanych:</translation>
    </message>
    <message>
        <source>Hidden categories:</source>
        <translation>Ukryte kategorie:</translation>
    </message>
    <message>
        <source>Settings of programme guides:</source>
        <translation>Ustawienia programów TV:</translation>
    </message>
    <message>
        <source>Guide channels that were set by hand:</source>
        <translation>Kanały programu TV ustawione ręcznie:</translation>
    </message>
    <message>
        <source>Reminders:</source>
        <translation>Przypomnienia:</translation>
    </message>
    <message>
        <source>Preferred languages:</source>
        <translation>Preferowane języki:</translation>
    </message>
    <message>
        <source>no change</source>
        <translation>bez zmian</translation>
    </message>
    <message>
        <source>%1 added, %2 changed, %3 removed</source>
        <translation>dodano: %1, zmieniono: %2, usunięto: %3</translation>
    </message>
    <message>
        <source>The backup has no passwords and keys. Enter them afterwards with &quot;Edit Source...&quot; for: %1</source>
        <translation>Kopia zapasowa nie zawiera haseł i kluczy. Wprowadź je później za pomocą polecenia „Edytuj źródło...” dla: %1</translation>
    </message>
    <message>
        <source>The backup has no playlist files. Choose them afterwards with &quot;Edit Source...&quot; for: %1</source>
        <translation>Kopia zapasowa nie zawiera plików playlist. Wybierz je później za pomocą polecenia „Edytuj źródło...” dla: %1</translation>
    </message>
    <message>
        <source>The backup has no passwords in addresses of guides. Enter them afterwards with &quot;Programme Guide...&quot; for: %1</source>
        <translation>Kopia zapasowa nie zawiera haseł w adresach programów TV. Wprowadź je później za pomocą polecenia „Program TV...” dla: %1</translation>
    </message>
</context>
<context>
    <name>ScheduleDialog</name>
    <message>
        <source>Watch</source>
        <translation>Oglądaj</translation>
    </message>
    <message>
        <source>Watch from Start</source>
        <translation>Oglądaj od początku</translation>
    </message>
    <message>
        <source>Schedule of %1</source>
        <translation>Ramówka kanału %1</translation>
    </message>
    <message>
        <source>Day</source>
        <translation>Dzień</translation>
    </message>
    <message>
        <source>Programmes</source>
        <translation>Audycje</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Opis</translation>
    </message>
    <message>
        <source>The guide&apos;s channel was guessed from the name: %1</source>
        <translation>Kanał programu TV odgadnięto na podstawie nazwy: %1</translation>
    </message>
    <message>
        <source>Remove Reminder</source>
        <translation>Usuń przypomnienie</translation>
    </message>
    <message>
        <source>Remind Me</source>
        <translation>Przypomnij</translation>
    </message>
    <message>
        <source>Loading the schedule...</source>
        <translation>Ładowanie ramówki...</translation>
    </message>
    <message>
        <source>The guide has no programmes of this channel.</source>
        <translation>Program TV nie zawiera audycji tego kanału.</translation>
    </message>
    <message>
        <source>The guide has no programmes of this day.</source>
        <translation>Program TV nie zawiera audycji z tego dnia.</translation>
    </message>
</context>
<context>
    <name>ScheduleItem</name>
    <message>
        <source>On Now</source>
        <translation>Teraz na antenie</translation>
    </message>
    <message>
        <source>In the Archive</source>
        <translation>W archiwum</translation>
    </message>
    <message>
        <source>Reminder Set</source>
        <translation>Ustawiono przypomnienie</translation>
    </message>
</context>
<context>
    <name>SleepInhibitor</name>
    <message>
        <source>Playing</source>
        <translation>Trwa odtwarzanie</translation>
    </message>
</context>
<context>
    <name>SourceBar</name>
    <message>
        <source>More</source>
        <translation>Więcej</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Źródło</translation>
    </message>
    <message>
        <source>Add Source...</source>
        <translation>Dodaj źródło...</translation>
    </message>
    <message>
        <source>Edit Source...</source>
        <translation>Edytuj źródło...</translation>
    </message>
    <message>
        <source>Refresh Playlist</source>
        <translation>Odśwież playlistę</translation>
    </message>
    <message>
        <source>Source:</source>
        <translation>Źródło:</translation>
    </message>
    <message>
        <source>Fetch the catalog of the source again</source>
        <translation>Pobierz ponownie katalog źródła</translation>
    </message>
</context>
<context>
    <name>SourceDialog</name>
    <message>
        <source>Edit Source</source>
        <translation>Edytuj źródło</translation>
    </message>
    <message>
        <source>Add Source</source>
        <translation>Dodaj źródło</translation>
    </message>
    <message>
        <source>M3U Playlist</source>
        <translation>Playlista M3U</translation>
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
        <translation>Typ źródła</translation>
    </message>
    <message>
        <source>Delete Source</source>
        <translation>Usuń źródło</translation>
    </message>
    <message>
        <source>Source Type:</source>
        <translation>Typ źródła:</translation>
    </message>
    <message>
        <source>http://example.com/playlist.m3u or a local file path</source>
        <translation>http://example.com/playlist.m3u lub ścieżka do pliku lokalnego</translation>
    </message>
    <message>
        <source>Playlist URL/File</source>
        <translation>Adres URL/plik playlisty</translation>
    </message>
    <message>
        <source>Upload File...</source>
        <translation>Wgraj plik...</translation>
    </message>
    <message>
        <source>Name:</source>
        <translation>Nazwa:</translation>
    </message>
    <message>
        <source>Playlist URL/File:</source>
        <translation>Adres URL/plik playlisty:</translation>
    </message>
    <message>
        <source>http://example.com:8080</source>
        <translation>http://example.com:8080</translation>
    </message>
    <message>
        <source>Test Connection</source>
        <translation>Testuj połączenie</translation>
    </message>
    <message>
        <source>Server URL:</source>
        <translation>Adres URL serwera:</translation>
    </message>
    <message>
        <source>Username:</source>
        <translation>Nazwa użytkownika:</translation>
    </message>
    <message>
        <source>Password:</source>
        <translation>Hasło:</translation>
    </message>
    <message>
        <source>Live Stream Format:</source>
        <translation>Format transmisji na żywo:</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Hasło</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Pokaż</translation>
    </message>
    <message>
        <source>Your Zevrino subscription key</source>
        <translation>Twój klucz subskrypcji Zevrino</translation>
    </message>
    <message>
        <source>Subscription Key:</source>
        <translation>Klucz subskrypcji:</translation>
    </message>
    <message>
        <source>Upload M3U Playlist</source>
        <translation>Wgraj playlistę M3U</translation>
    </message>
    <message>
        <source>Playlists (*.m3u *.m3u8);;All Files (*)</source>
        <translation>Playlisty (*.m3u *.m3u8);;Wszystkie pliki (*)</translation>
    </message>
    <message>
        <source>Testing...</source>
        <translation>Testowanie...</translation>
    </message>
    <message>
        <source>Connection OK</source>
        <translation>Połączenie działa</translation>
    </message>
    <message>
        <source>Failed: %1</source>
        <translation>Niepowodzenie: %1</translation>
    </message>
    <message>
        <source>Delete source &quot;%1&quot;? This cannot be undone.</source>
        <translation>Usunąć źródło „%1”? Tej operacji nie można cofnąć.</translation>
    </message>
</context>
<context>
    <name>SourceOptionsDialog</name>
    <message>
        <source>Source Options</source>
        <translation>Opcje źródła</translation>
    </message>
    <message>
        <source>Source: %1</source>
        <translation>Źródło: %1</translation>
    </message>
    <message>
        <source>The usual one</source>
        <translation>Zwykły</translation>
    </message>
    <message>
        <source>The name under which the player asks this source for its catalog, its guide and its streams. Only some providers want a certain one. A playlist can name another one for a channel.</source>
        <translation>Nazwa, pod którą odtwarzacz pyta to źródło o katalog, program i strumienie. Tylko niektórzy dostawcy wymagają określonej. Lista odtwarzania może podać inną dla kanału.</translation>
    </message>
    <message>
        <source>&amp;User agent:</source>
        <translation>&amp;User-agent:</translation>
    </message>
    <message>
        <source>A user agent has at most 2048 characters: letters from A to Z, digits, blanks and the other characters of a plain English keyboard.</source>
        <translation>User-agent ma najwyżej 2048 znaków: litery od A do Z, cyfry, spacje i pozostałe znaki prostej klawiatury angielskiej.</translation>
    </message>
</context>
<context>
    <name>StreamInfoDialog</name>
    <message>
        <source>Stream Info</source>
        <translation>Informacje o strumieniu</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>Odśwież</translation>
    </message>
</context>
<context>
    <name>TabLibrary</name>
    <message>
        <source>Removed from Recently Watched</source>
        <translation>Usunięto z ostatnio oglądanych</translation>
    </message>
    <message>
        <source>Removed from Favorites</source>
        <translation>Usunięto z ulubionych</translation>
    </message>
    <message>
        <source>Marked as Watched</source>
        <translation>Oznaczono jako obejrzane</translation>
    </message>
    <message>
        <source>Marked as Unwatched</source>
        <translation>Oznaczono jako nieobejrzane</translation>
    </message>
    <message>
        <source>Category Hidden</source>
        <translation>Ukryto kategorię</translation>
    </message>
</context>
<context>
    <name>TrackMenus</name>
    <message>
        <source>Disable</source>
        <translation>Wyłącz</translation>
    </message>
    <message>
        <source>Load Subtitle File...</source>
        <translation>Wczytaj plik napisów...</translation>
    </message>
    <message>
        <source>No audio tracks</source>
        <translation>Brak ścieżek dźwiękowych</translation>
    </message>
    <message>
        <source>Load Subtitle File</source>
        <translation>Wczytaj plik napisów</translation>
    </message>
    <message>
        <source>Subtitles (*.srt *.ass *.ssa *.sub *.vtt);;All Files (*)</source>
        <translation>Napisy (*.srt *.ass *.ssa *.sub *.vtt);;Wszystkie pliki (*)</translation>
    </message>
</context>
<context>
    <name>UndoBar</name>
    <message>
        <source>Undo</source>
        <translation>Cofnij</translation>
    </message>
</context>
<context>
    <name>VlcPlayer</name>
    <message>
        <source>The stream stopped advancing for %1 seconds.</source>
        <translation>Strumień nie posuwa się naprzód od %1 s.</translation>
    </message>
    <message>
        <source>Could not create media for URL: %1</source>
        <translation>Nie można utworzyć multimediów dla adresu URL: %1</translation>
    </message>
    <message>
        <source>Playback failed to start for: %1</source>
        <translation>Nie można rozpocząć odtwarzania: %1</translation>
    </message>
    <message>
        <source>libVLC encountered an error while streaming.</source>
        <translation>libVLC napotkał błąd podczas odtwarzania strumienia.</translation>
    </message>
    <message>
        <source>The live stream stopped sending data.</source>
        <translation>Strumień na żywo przestał wysyłać dane.</translation>
    </message>
    <message>
        <source>Reached the end of the stream (this can also happen if a seek landed somewhere the stream couldn&apos;t resume from).</source>
        <translation>Osiągnięto koniec strumienia (może się to zdarzyć także po przejściu do miejsca, od którego strumień nie mógł zostać wznowiony).</translation>
    </message>
    <message>
        <source>Disable</source>
        <translation>Wyłącz</translation>
    </message>
    <message>
        <source>Track %1</source>
        <translation>Ścieżka %1</translation>
    </message>
    <message>
        <source>Video codec: %1
Resolution: %2x%3
Frame rate: %4 fps

</source>
        <translation>Kodek wideo: %1
Rozdzielczość: %2x%3
Liczba klatek na sekundę: %4 fps

</translation>
    </message>
    <message>
        <source>Audio codec: %1
Sample rate: %2 Hz
Channels: %3

</source>
        <translation>Kodek dźwięku: %1
Częstotliwość próbkowania: %2 Hz
Kanały: %3

</translation>
    </message>
    <message>
        <source>Input bitrate: %1 kbps
Demux bitrate: %2 kbps
Decoded video blocks: %3
Decoded audio blocks: %4
Displayed frames: %5   Lost frames: %6
</source>
        <translation>Przepływność wejściowa: %1 kbps
Przepływność demultipleksera: %2 kbps
Zdekodowane bloki wideo: %3
Zdekodowane bloki dźwięku: %4
Wyświetlone klatki: %5   Utracone klatki: %6
</translation>
    </message>
    <message>
        <source>No player.</source>
        <translation>Brak odtwarzacza.</translation>
    </message>
    <message>
        <source>No media loaded.</source>
        <translation>Nie wczytano multimediów.</translation>
    </message>
    <message>
        <source>Audio tracks:
</source>
        <translation>Ścieżki dźwiękowe:
</translation>
    </message>
    <message>
        <source>Subtitle tracks:
</source>
        <translation>Ścieżki napisów:
</translation>
    </message>
    <message>
        <source>No track information available yet.</source>
        <translation>Brak jeszcze informacji o ścieżkach.</translation>
    </message>
</context>
<context>
    <name>XtreamClient</name>
    <message>
        <source>Could not reach server or invalid response</source>
        <translation>Nie można połączyć się z serwerem lub odpowiedź jest nieprawidłowa</translation>
    </message>
    <message>
        <source>Authentication failed - check server URL, username, and password</source>
        <translation>Uwierzytelnianie nie powiodło się - sprawdź adres URL serwera, nazwę użytkownika i hasło</translation>
    </message>
</context>
<context>
    <name>ZevrinoClient</name>
    <message>
        <source>Invalid response from server</source>
        <translation>Nieprawidłowa odpowiedź serwera</translation>
    </message>
    <message>
        <source>Subscription could not be resolved</source>
        <translation>Nie można rozpoznać subskrypcji</translation>
    </message>
    <message>
        <source>Server response was missing credentials</source>
        <translation>W odpowiedzi serwera brakowało danych logowania</translation>
    </message>
    <message>
        <source>Could not reach server: %1</source>
        <translation>Nie można połączyć się z serwerem: %1</translation>
    </message>
</context>
</TS>
