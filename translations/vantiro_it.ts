<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="it" sourcelanguage="en">
<context>
    <name>AccountInformationDialog</name>
    <message>
        <source>Account Information</source>
        <translation>Informazioni sull&apos;account</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Sorgente</translation>
    </message>
    <message>
        <source>Asking the server...</source>
        <translation>Richiesta al server in corso...</translation>
    </message>
    <message>
        <source>The server could not be reached, or its answer cannot be read.</source>
        <translation>Il server non è raggiungibile o la sua risposta non è leggibile.</translation>
    </message>
    <message>
        <source>The server does not accept this account, or tells nothing about it.</source>
        <translation>Il server non accetta questo account o non ne comunica nulla.</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Sconosciuto</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Stato</translation>
    </message>
    <message>
        <source>Expires</source>
        <translation>Scadenza</translation>
    </message>
    <message>
        <source>Never</source>
        <translation>Mai</translation>
    </message>
    <message>
        <source>Trial</source>
        <translation>Prova</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Sì</translation>
    </message>
    <message>
        <source>No</source>
        <translation>No</translation>
    </message>
    <message>
        <source>Connections in use</source>
        <translation>Connessioni in uso</translation>
    </message>
    <message>
        <source>Connections allowed</source>
        <translation>Connessioni consentite</translation>
    </message>
    <message>
        <source>Formats</source>
        <translation>Formati</translation>
    </message>
    <message>
        <source>Time zone of the server</source>
        <translation>Fuso orario del server</translation>
    </message>
</context>
<context>
    <name>BrowseTab</name>
    <message>
        <source>Live TV</source>
        <translation>TV in diretta</translation>
    </message>
    <message>
        <source>Search all channels...</source>
        <translation>Cerca in tutti i canali...</translation>
    </message>
    <message>
        <source>Channels</source>
        <translation>Canali</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>Canale</translation>
    </message>
    <message>
        <source>Movies</source>
        <translation>Film</translation>
    </message>
    <message>
        <source>Search all movies...</source>
        <translation>Cerca in tutti i film...</translation>
    </message>
    <message>
        <source>TV Shows</source>
        <translation>Serie TV</translation>
    </message>
    <message>
        <source>Search all shows...</source>
        <translation>Cerca in tutte le serie...</translation>
    </message>
    <message>
        <source>Shows</source>
        <translation>Serie</translation>
    </message>
    <message>
        <source>Select a category:</source>
        <translation>Seleziona una categoria:</translation>
    </message>
    <message>
        <source>Categories</source>
        <translation>Categorie</translation>
    </message>
    <message>
        <source>Search...</source>
        <translation>Cerca...</translation>
    </message>
    <message>
        <source>Sort by</source>
        <translation>Ordina per</translation>
    </message>
    <message>
        <source>Name (A-Z)</source>
        <translation>Nome (A-Z)</translation>
    </message>
    <message>
        <source>Recently Added</source>
        <translation>Aggiunti di recente</translation>
    </message>
    <message>
        <source>Rating</source>
        <translation>Valutazione</translation>
    </message>
    <message>
        <source>&lt; Back to Categories</source>
        <translation>&lt; Torna alle categorie</translation>
    </message>
    <message>
        <source>All Categories</source>
        <translation>Tutte le categorie</translation>
    </message>
    <message>
        <source>Search: &quot;%1&quot;</source>
        <translation>Ricerca: &quot;%1&quot;</translation>
    </message>
    <message>
        <source>Guide</source>
        <translation>Guida</translation>
    </message>
    <message>
        <source>Show the programme guide</source>
        <translation>Mostra la guida TV</translation>
    </message>
    <message>
        <source>Remove from Favorites</source>
        <translation>Rimuovi dai preferiti</translation>
    </message>
    <message>
        <source>Add to Favorites</source>
        <translation>Aggiungi ai preferiti</translation>
    </message>
    <message>
        <source>Remove from List</source>
        <translation>Rimuovi dall&apos;elenco</translation>
    </message>
    <message>
        <source>Mark as Watched</source>
        <translation>Segna come visto</translation>
    </message>
    <message>
        <source>Mark as Unwatched</source>
        <translation>Segna come non visto</translation>
    </message>
</context>
<context>
    <name>CatchUpPlayer</name>
    <message>
        <source>The archive does not tell how to play this programme.</source>
        <translation>L&apos;archivio non indica come riprodurre questo programma.</translation>
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
        <translation>Preferiti</translation>
    </message>
    <message>
        <source>Continue Watching</source>
        <translation>Continua a guardare</translation>
    </message>
    <message>
        <source>Recently Watched</source>
        <translation>Visti di recente</translation>
    </message>
    <message>
        <source>All Categories</source>
        <translation>Tutte le categorie</translation>
    </message>
    <message>
        <source>Hidden</source>
        <translation>Nascoste</translation>
    </message>
    <message>
        <source>Unhide Category</source>
        <translation>Non nascondere più la categoria</translation>
    </message>
    <message>
        <source>Hide Category</source>
        <translation>Nascondi la categoria</translation>
    </message>
    <message>
        <source>Show Hidden Categories</source>
        <translation>Mostra le categorie nascoste</translation>
    </message>
</context>
<context>
    <name>ClearHistoryDialog</name>
    <message>
        <source>Recently watched</source>
        <translation>Visti di recente</translation>
    </message>
    <message>
        <source>Positions and watched marks</source>
        <translation>Posizioni e contrassegni di visione</translation>
    </message>
    <message>
        <source>Clear History</source>
        <translation>Cancella cronologia</translation>
    </message>
    <message>
        <source>What goes, of all sources? Favorites and hidden categories stay.</source>
        <translation>Che cosa cancellare, per tutte le sorgenti? I preferiti e le categorie nascoste restano.</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Cancella</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>Subscription service: %1</source>
        <translation>Servizio di abbonamento: %1</translation>
    </message>
    <message>
        <source>A player for internet television.</source>
        <translation>Un lettore per la televisione via Internet.</translation>
    </message>
    <message>
        <source>Displays version information.</source>
        <translation>Mostra informazioni sulla versione.</translation>
    </message>
    <message>
        <source>Playlists, films and streams to open: files or URLs.</source>
        <translation>Playlist, film e flussi da aprire: file o URL.</translation>
    </message>
</context>
<context>
    <name>EntryMarks</name>
    <message>
        <source>Favorite</source>
        <translation>Preferito</translation>
    </message>
    <message>
        <source>Watched</source>
        <translation>Visto</translation>
    </message>
    <message>
        <source>%1 % watched</source>
        <translation>%1 % visto</translation>
    </message>
</context>
<context>
    <name>EntryTable</name>
    <message>
        <source>Move Up</source>
        <translation>Sposta su</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>Sposta giù</translation>
    </message>
</context>
<context>
    <name>EpisodePage</name>
    <message>
        <source>&lt; Back to Shows</source>
        <translation>&lt; Torna alle serie</translation>
    </message>
    <message>
        <source>Episodes</source>
        <translation>Episodi</translation>
    </message>
    <message>
        <source>E%1 - %2</source>
        <translation>E%1 - %2</translation>
    </message>
    <message>
        <source>Season %1</source>
        <translation>Stagione %1</translation>
    </message>
    <message>
        <source>Mark as Watched</source>
        <translation>Segna come visto</translation>
    </message>
    <message>
        <source>Mark as Unwatched</source>
        <translation>Segna come non visto</translation>
    </message>
</context>
<context>
    <name>GuideAddressList</name>
    <message>
        <source>Addresses of guides, the preferred one first</source>
        <translation>Indirizzi delle guide, la preferita per prima</translation>
    </message>
    <message>
        <source>Add Address...</source>
        <translation>Aggiungi indirizzo...</translation>
    </message>
    <message>
        <source>Add File...</source>
        <translation>Aggiungi file...</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Rimuovi</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>Sposta su</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>Sposta giù</translation>
    </message>
    <message>
        <source>Add Account&apos;s Guide</source>
        <translation>Aggiungi la guida dell&apos;account</translation>
    </message>
    <message>
        <source>Add Playlist&apos;s Guide</source>
        <translation>Aggiungi la guida della playlist</translation>
    </message>
    <message>
        <source>Add File</source>
        <translation>Aggiungi file</translation>
    </message>
    <message>
        <source>Guides (*.xml *.xmltv *.gz);;All Files (*)</source>
        <translation>Guide (*.xml *.xmltv *.gz);;Tutti i file (*)</translation>
    </message>
</context>
<context>
    <name>GuideChannelDialog</name>
    <message>
        <source>Automatic: find it by its id and name</source>
        <translation>Automatico: trovato tramite identificativo e nome</translation>
    </message>
    <message>
        <source>No guide for this channel</source>
        <translation>Nessuna guida per questo canale</translation>
    </message>
    <message>
        <source>This channel of the guide:</source>
        <translation>Questo canale della guida:</translation>
    </message>
    <message>
        <source>Guide Channel</source>
        <translation>Canale della guida</translation>
    </message>
    <message>
        <source>Channel: %1</source>
        <translation>Canale: %1</translation>
    </message>
    <message>
        <source>Confirm Suggestion</source>
        <translation>Conferma suggerimento</translation>
    </message>
    <message>
        <source>Found by the id that the source names: %1</source>
        <translation>Trovato tramite l&apos;identificativo indicato dalla sorgente: %1</translation>
    </message>
    <message>
        <source>Found by the name that the source gives for the guide: %1</source>
        <translation>Trovato tramite il nome che la sorgente indica per la guida: %1</translation>
    </message>
    <message>
        <source>Found by the channel&apos;s name: %1</source>
        <translation>Trovato tramite il nome del canale: %1</translation>
    </message>
    <message>
        <source>Suggested, since the names are alike: %1</source>
        <translation>Suggerito perché i nomi si somigliano: %1</translation>
    </message>
    <message>
        <source>Search the guide&apos;s channels</source>
        <translation>Cerca nei canali della guida</translation>
    </message>
    <message>
        <source>Search the guide&apos;s channels...</source>
        <translation>Cerca nei canali della guida...</translation>
    </message>
    <message>
        <source>Channels of the guide</source>
        <translation>Canali della guida</translation>
    </message>
    <message>
        <source>No channel of the guide contains this text.</source>
        <translation>Nessun canale della guida contiene questo testo.</translation>
    </message>
    <message>
        <source>Only the first %1 are shown. Type more of the name.</source>
        <translation>Vengono mostrati solo i primi %1. Digita una parte più lunga del nome.</translation>
    </message>
</context>
<context>
    <name>GuideDialog</name>
    <message>
        <source>Show a programme guide for this source</source>
        <translation>Mostra una guida TV per questa sorgente</translation>
    </message>
    <message>
        <source>Refresh every 12 hours</source>
        <translation>Aggiorna ogni 12 ore</translation>
    </message>
    <message>
        <source>Update Now</source>
        <translation>Aggiorna ora</translation>
    </message>
    <message>
        <source>Cancel Update</source>
        <translation>Annulla aggiornamento</translation>
    </message>
    <message>
        <source>Programme Guide</source>
        <translation>Guida TV</translation>
    </message>
    <message>
        <source>Source: %1</source>
        <translation>Sorgente: %1</translation>
    </message>
    <message>
        <source> hours</source>
        <translation> ore</translation>
    </message>
    <message>
        <source>Where the guide comes from, in order of preference:</source>
        <translation>Da dove proviene la guida, in ordine di preferenza:</translation>
    </message>
    <message>
        <source>Shift all times by:</source>
        <translation>Sposta tutti gli orari di:</translation>
    </message>
    <message>
        <source>Progress of the update</source>
        <translation>Avanzamento dell&apos;aggiornamento</translation>
    </message>
</context>
<context>
    <name>GuideGrid</name>
    <message>
        <source>Programme guide</source>
        <translation>Guida TV</translation>
    </message>
    <message>
        <source>in the archive</source>
        <translation>nell&apos;archivio</translation>
    </message>
    <message>
        <source>No information</source>
        <translation>Nessuna informazione</translation>
    </message>
</context>
<context>
    <name>GuideResult</name>
    <message>
        <source>The account&apos;s own guide</source>
        <translation>La guida propria dell&apos;account</translation>
    </message>
    <message>
        <source>The guide of the last update stays.</source>
        <translation>Resta la guida dell&apos;ultimo aggiornamento.</translation>
    </message>
    <message>
        <source>The update was cancelled. The guide of the last update stays.</source>
        <translation>L&apos;aggiornamento è stato annullato. Resta la guida dell&apos;ultimo aggiornamento.</translation>
    </message>
    <message>
        <source>Last update: %1</source>
        <translation>Ultimo aggiornamento: %1</translation>
    </message>
    <message>
        <source>Programmes: %1</source>
        <translation>Programmi: %1</translation>
    </message>
    <message>
        <source>Channels with a guide: %1 of %2</source>
        <translation>Canali con guida: %1 di %2</translation>
    </message>
    <message>
        <source>Of these, only suggested: %1. Confirm or change them with &quot;Guide Channel...&quot; in a channel&apos;s menu.</source>
        <translation>Di questi, solo suggeriti: %1. Confermali o modificali con &quot;Canale della guida...&quot; nel menu di un canale.</translation>
    </message>
    <message>
        <source>The last programme begins: %1</source>
        <translation>L&apos;ultimo programma inizia: %1</translation>
    </message>
    <message>
        <source>%1 cannot be reached: %2</source>
        <translation>%1 non è raggiungibile: %2</translation>
    </message>
    <message>
        <source>%1 cannot be opened: %2</source>
        <translation>Impossibile aprire %1: %2</translation>
    </message>
    <message>
        <source>%1 is no guide. It may be a page or an error message.</source>
        <translation>%1 non è una guida. Potrebbe essere una pagina o un messaggio di errore.</translation>
    </message>
    <message>
        <source>%1 is packed in a form other than gzip, which cannot be read.</source>
        <translation>%1 è compresso in un formato diverso da gzip, che non può essere letto.</translation>
    </message>
    <message>
        <source>%1 is damaged and cannot be unpacked.</source>
        <translation>%1 è danneggiato e non può essere decompresso.</translation>
    </message>
    <message>
        <source>%1 ends early. It was not taken.</source>
        <translation>%1 termina prematuramente e non è stato utilizzato.</translation>
    </message>
    <message>
        <source>%1 is too large.</source>
        <translation>%1 è troppo grande.</translation>
    </message>
    <message>
        <source>%1 has no programmes of the channels of this source.</source>
        <translation>%1 non contiene programmi dei canali di questa sorgente.</translation>
    </message>
    <message>
        <source>%1 cannot be stored: %2</source>
        <translation>Impossibile salvare %1: %2</translation>
    </message>
    <message>
        <source>What the source tells of its channels cannot be read: %1</source>
        <translation>Impossibile leggere le indicazioni della sorgente sui suoi canali: %1</translation>
    </message>
    <message numerus="yes">
        <source>%1: %Ln programmes. The time zone of some is not known; they may be shown at the wrong hour.</source>
        <translation>
            <numerusform>%1: %Ln programma. Il fuso orario di alcuni non è noto; potrebbero essere mostrati all&apos;ora sbagliata.</numerusform>
            <numerusform>%1: %Ln programmi. Il fuso orario di alcuni non è noto; potrebbero essere mostrati all&apos;ora sbagliata.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1: %Ln programmes.</source>
        <translation>
            <numerusform>%1: %Ln programma.</numerusform>
            <numerusform>%1: %Ln programmi.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>GuideSearchList</name>
    <message>
        <source>Programmes found</source>
        <translation>Programmi trovati</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Ora</translation>
    </message>
    <message>
        <source>Programme</source>
        <translation>Programma</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>Canale</translation>
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
        <translation>Ieri</translation>
    </message>
    <message>
        <source>Today</source>
        <translation>Oggi</translation>
    </message>
    <message>
        <source>Tomorrow</source>
        <translation>Domani</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <translation>%1 %2</translation>
    </message>
    <message>
        <source>Yesterday %1</source>
        <translation>Ieri %1</translation>
    </message>
    <message>
        <source>Today %1</source>
        <translation>Oggi %1</translation>
    </message>
    <message>
        <source>Tomorrow %1</source>
        <translation>Domani %1</translation>
    </message>
</context>
<context>
    <name>GuideView</name>
    <message>
        <source>Now</source>
        <translation>Adesso</translation>
    </message>
    <message>
        <source>Show what runs now</source>
        <translation>Mostra cosa c&apos;è in onda adesso</translation>
    </message>
    <message>
        <source>Previous day</source>
        <translation>Giorno precedente</translation>
    </message>
    <message>
        <source>Day</source>
        <translation>Giorno</translation>
    </message>
    <message>
        <source>Next day</source>
        <translation>Giorno successivo</translation>
    </message>
    <message>
        <source>Search programmes...</source>
        <translation>Cerca programmi...</translation>
    </message>
    <message>
        <source>No programme found.</source>
        <translation>Nessun programma trovato.</translation>
    </message>
    <message>
        <source>%1  %2 (in the archive)</source>
        <translation>%1  %2 (nell&apos;archivio)</translation>
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
        <translation>Impossibile salvare i preferiti e le posizioni: %1</translation>
    </message>
    <message>
        <source>Favorites and positions were stored by a newer version of this program. They stay as they are, and changes are not stored.</source>
        <translation>I preferiti e le posizioni sono stati salvati da una versione più recente di questo programma. Restano come sono e le modifiche non vengono salvate.</translation>
    </message>
    <message>
        <source>The file with your favorites and positions was damaged. It was kept as &quot;%1&quot;, and a new one was begun.</source>
        <translation>Il file con i preferiti e le posizioni era danneggiato. È stato conservato come &quot;%1&quot; e ne è stato creato uno nuovo.</translation>
    </message>
</context>
<context>
    <name>LibraryBackup</name>
    <message>
        <source>This file is not a backup of Vantiro Player, or it is damaged.</source>
        <translation>Questo file non è un backup di Vantiro Player oppure è danneggiato.</translation>
    </message>
    <message>
        <source>This backup was made by a newer version of Vantiro Player.</source>
        <translation>Questo backup è stato creato con una versione più recente di Vantiro Player.</translation>
    </message>
    <message>
        <source>This backup is damaged: its part &quot;%1&quot; cannot be read.</source>
        <translation>Questo backup è danneggiato: la sua parte &quot;%1&quot; non può essere letta.</translation>
    </message>
    <message>
        <source>The backup cannot be written: %1</source>
        <translation>Impossibile scrivere il backup: %1</translation>
    </message>
    <message>
        <source>The backup cannot be read: %1</source>
        <translation>Impossibile leggere il backup: %1</translation>
    </message>
</context>
<context>
    <name>LoadingOverlay</name>
    <message>
        <source>Loading...</source>
        <translation>Caricamento...</translation>
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
        <translation>Specifica una chiave di abbonamento valida.</translation>
    </message>
    <message>
        <source>Please provide a valid URL/path.</source>
        <translation>Specifica un URL o un percorso valido.</translation>
    </message>
    <message>
        <source>%1 until %2</source>
        <translation>%1 fino alle %2</translation>
    </message>
    <message>
        <source>Next: %1 %2</source>
        <translation>A seguire: %1 %2</translation>
    </message>
    <message>
        <source>Watch from Start</source>
        <translation>Guarda dall&apos;inizio</translation>
    </message>
    <message>
        <source>Schedule</source>
        <translation>Palinsesto</translation>
    </message>
    <message>
        <source>Guide Channel...</source>
        <translation>Canale della guida...</translation>
    </message>
    <message>
        <source>Favorites and Positions</source>
        <translation>Preferiti e posizioni</translation>
    </message>
    <message>
        <source>Removed from Favorites</source>
        <translation>Rimosso dai preferiti</translation>
    </message>
    <message>
        <source>Added to Favorites</source>
        <translation>Aggiunto ai preferiti</translation>
    </message>
    <message>
        <source>Marked as Watched</source>
        <translation>Segnato come visto</translation>
    </message>
    <message>
        <source>Marked as Unwatched</source>
        <translation>Segnato come non visto</translation>
    </message>
    <message>
        <source>History cleared</source>
        <translation>Cronologia cancellata</translation>
    </message>
    <message>
        <source>Back Up</source>
        <translation>Backup</translation>
    </message>
    <message>
        <source>The backup holds your sources, favorites, history, positions, hidden categories, the settings of programme guides and reminders.</source>
        <translation>Il backup contiene sorgenti, preferiti, cronologia, posizioni, categorie nascoste, impostazioni delle guide TV e promemoria.</translation>
    </message>
    <message>
        <source>The backup holds your sources, favorites, history, positions and hidden categories.</source>
        <translation>Il backup contiene sorgenti, preferiti, cronologia, posizioni e categorie nascoste.</translation>
    </message>
    <message>
        <source>Whoever has the file can read the passwords and keys in it.</source>
        <translation>Chiunque abbia il file può leggere le password e le chiavi che contiene.</translation>
    </message>
    <message>
        <source>Include passwords and keys</source>
        <translation>Includi password e chiavi</translation>
    </message>
    <message>
        <source>Backups (*.json);;All Files (*)</source>
        <translation>Backup (*.json);;Tutti i file (*)</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Ripristina</translation>
    </message>
    <message>
        <source>The backup could not be restored. Everything is as it was.</source>
        <translation>Impossibile ripristinare il backup. Tutto è rimasto com&apos;era.</translation>
    </message>
    <message>
        <source>Vantiro Player %1
A player for internet television.
Copyright 2026 Vantiro. All rights reserved.

With Qt %2 (LGPL 3), libVLC %3 (LGPL 2.1 or later) and RapidJSON (MIT). The texts of these licences come with the package.</source>
        <translation>Vantiro Player %1
Un lettore per la televisione via Internet.
Copyright 2026 Vantiro. Tutti i diritti riservati.

Con Qt %2 (LGPL 3), libVLC %3 (LGPL 2.1 o successiva) e RapidJSON (MIT). I testi di queste licenze sono inclusi nel pacchetto.</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Informazioni</translation>
    </message>
    <message>
        <source>Playback Error</source>
        <translation>Errore di riproduzione</translation>
    </message>
    <message>
        <source>Zevrino</source>
        <translation>Zevrino</translation>
    </message>
    <message>
        <source>Failed to load subscription: %1</source>
        <translation>Impossibile caricare l&apos;abbonamento: %1</translation>
    </message>
    <message>
        <source>Load Playlist</source>
        <translation>Carica playlist</translation>
    </message>
    <message>
        <source>Failed to open file: %1</source>
        <translation>Impossibile aprire il file: %1</translation>
    </message>
    <message>
        <source>Failed to download playlist: %1</source>
        <translation>Impossibile scaricare la playlist: %1</translation>
    </message>
    <message>
        <source>No channel %1</source>
        <translation>Nessun canale %1</translation>
    </message>
    <message>
        <source>Leave fullscreen first</source>
        <translation>Esci prima dallo schermo intero</translation>
    </message>
    <message>
        <source>Shift+P or Escape leaves the small window</source>
        <translation>Per uscire: Maiusc+P o Esc</translation>
    </message>
    <message>
        <source>It is not a film or a stream that can be played.</source>
        <translation>Non è un film o un flusso riproducibile.</translation>
    </message>
    <message>
        <source>Open File</source>
        <translation>Apri file</translation>
    </message>
    <message>
        <source>Videos and Playlists (%1);;All Files (*)</source>
        <translation>Video e playlist (%1);;Tutti i file (*)</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Apri</translation>
    </message>
    <message>
        <source>This could not be opened:</source>
        <translation>Impossibile aprire:</translation>
    </message>
</context>
<context>
    <name>MoreMenu</name>
    <message>
        <source>Clear History...</source>
        <translation>Cancella cronologia...</translation>
    </message>
    <message>
        <source>More</source>
        <translation>Altro</translation>
    </message>
    <message>
        <source>Back Up...</source>
        <translation>Backup...</translation>
    </message>
    <message>
        <source>Restore...</source>
        <translation>Ripristina...</translation>
    </message>
    <message>
        <source>Programme Guide...</source>
        <translation>Guida TV...</translation>
    </message>
    <message>
        <source>Account Information...</source>
        <translation>Informazioni sull&apos;account...</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Informazioni</translation>
    </message>
    <message>
        <source>Open File...</source>
        <translation>Apri file...</translation>
    </message>
    <message>
        <source>Open Location...</source>
        <translation>Apri indirizzo...</translation>
    </message>
    <message>
        <source>Source Options...</source>
        <translation>Opzioni della sorgente...</translation>
    </message>
</context>
<context>
    <name>OnNow</name>
    <message>
        <source>Now</source>
        <translation>Adesso</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>A seguire</translation>
    </message>
    <message>
        <source>This guide channel is a suggestion.</source>
        <translation>Questo canale della guida è un suggerimento.</translation>
    </message>
</context>
<context>
    <name>OpenLocationDialog</name>
    <message>
        <source>Open Location</source>
        <translation>Apri indirizzo</translation>
    </message>
    <message>
        <source>http://example.com/stream.ts or a local file path</source>
        <translation>http://example.com/stream.ts o il percorso di un file locale</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Apri</translation>
    </message>
    <message>
        <source>Address:</source>
        <translation>Indirizzo:</translation>
    </message>
</context>
<context>
    <name>OpenTarget</name>
    <message>
        <source>The file does not exist.</source>
        <translation>Il file non esiste.</translation>
    </message>
    <message>
        <source>It is a folder.</source>
        <translation>È una cartella.</translation>
    </message>
    <message>
        <source>Addresses that begin with &quot;%1:&quot; are not supported.</source>
        <translation>Gli indirizzi che iniziano con &quot;%1:&quot; non sono supportati.</translation>
    </message>
    <message>
        <source>The address names no server.</source>
        <translation>L&apos;indirizzo non indica alcun server.</translation>
    </message>
</context>
<context>
    <name>PlaybackErrorBox</name>
    <message>
        <source>Playback Error</source>
        <translation>Errore di riproduzione</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Riprova</translation>
    </message>
</context>
<context>
    <name>PlaybackSession</name>
    <message>
        <source>Playback stopped: %1</source>
        <translation>Riproduzione interrotta: %1</translation>
    </message>
    <message>
        <source>The archive sent nothing that plays.</source>
        <translation>L&apos;archivio non ha inviato nulla di riproducibile.</translation>
    </message>
    <message>
        <source>The archive stopped sending data.</source>
        <translation>L&apos;archivio ha smesso di inviare dati.</translation>
    </message>
</context>
<context>
    <name>PlayerCommands</name>
    <message>
        <source>Picture saved: %1</source>
        <translation>Immagine salvata: %1</translation>
    </message>
    <message>
        <source>The picture could not be saved in %1.</source>
        <translation>Impossibile salvare l&apos;immagine in %1.</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Successivo</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>Precedente</translation>
    </message>
    <message>
        <source>Last Channel</source>
        <translation>Ultimo canale</translation>
    </message>
    <message>
        <source>Slower</source>
        <translation>Più lento</translation>
    </message>
    <message>
        <source>Faster</source>
        <translation>Più veloce</translation>
    </message>
    <message>
        <source>Normal Speed</source>
        <translation>Velocità normale</translation>
    </message>
    <message>
        <source>Sound Earlier</source>
        <translation>Anticipa audio</translation>
    </message>
    <message>
        <source>Sound Later</source>
        <translation>Ritarda audio</translation>
    </message>
    <message>
        <source>Subtitles Earlier</source>
        <translation>Anticipa sottotitoli</translation>
    </message>
    <message>
        <source>Subtitles Later</source>
        <translation>Ritarda sottotitoli</translation>
    </message>
    <message>
        <source>Next Aspect Ratio</source>
        <translation>Proporzioni successive</translation>
    </message>
    <message>
        <source>Next Crop</source>
        <translation>Ritaglio successivo</translation>
    </message>
    <message>
        <source>Next Zoom</source>
        <translation>Zoom successivo</translation>
    </message>
    <message>
        <source>Deinterlace</source>
        <translation>Deinterlaccia</translation>
    </message>
    <message>
        <source>Next Audio Track</source>
        <translation>Traccia audio successiva</translation>
    </message>
    <message>
        <source>Next Subtitle Track</source>
        <translation>Traccia sottotitoli successiva</translation>
    </message>
    <message>
        <source>Save Picture</source>
        <translation>Salva immagine</translation>
    </message>
    <message>
        <source>Always on Top</source>
        <translation>Sempre in primo piano</translation>
    </message>
    <message>
        <source>Small Window</source>
        <translation>Finestra piccola</translation>
    </message>
    <message>
        <source>Nothing playing</source>
        <translation>Nessuna riproduzione</translation>
    </message>
    <message>
        <source>Channel %1</source>
        <translation>Canale %1</translation>
    </message>
    <message>
        <source>A live channel has no other speed</source>
        <translation>Un canale in diretta non ha altre velocità</translation>
    </message>
    <message>
        <source>Speed: %1x</source>
        <translation>Velocità: %1x</translation>
    </message>
    <message>
        <source>Audio delay: %1 ms</source>
        <translation>Ritardo audio: %1 ms</translation>
    </message>
    <message>
        <source>Subtitle delay: %1 ms</source>
        <translation>Ritardo sottotitoli: %1 ms</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>Predefinito</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>Fit to Window</source>
        <translation>Adatta alla finestra</translation>
    </message>
    <message>
        <source>Aspect ratio: %1</source>
        <translation>Proporzioni: %1</translation>
    </message>
    <message>
        <source>Crop: %1</source>
        <translation>Ritaglio: %1</translation>
    </message>
    <message>
        <source>Zoom: %1</source>
        <translation>Zoom: %1</translation>
    </message>
    <message>
        <source>Deinterlacing: on</source>
        <translation>Deinterlacciamento: attivo</translation>
    </message>
    <message>
        <source>Deinterlacing: off</source>
        <translation>Deinterlacciamento: non attivo</translation>
    </message>
    <message>
        <source>No audio tracks</source>
        <translation>Nessuna traccia audio</translation>
    </message>
    <message>
        <source>Audio track: %1</source>
        <translation>Traccia audio: %1</translation>
    </message>
    <message>
        <source>No subtitles</source>
        <translation>Nessun sottotitolo</translation>
    </message>
    <message>
        <source>Subtitles: %1</source>
        <translation>Sottotitoli: %1</translation>
    </message>
    <message>
        <source>Subtitles: off</source>
        <translation>Sottotitoli: non attivi</translation>
    </message>
    <message>
        <source>Always on top: on</source>
        <translation>Sempre in primo piano: attivo</translation>
    </message>
    <message>
        <source>Always on top: off</source>
        <translation>Sempre in primo piano: non attivo</translation>
    </message>
</context>
<context>
    <name>PlayerMenu</name>
    <message>
        <source>Aspect Ratio</source>
        <translation>Proporzioni</translation>
    </message>
    <message>
        <source>Crop</source>
        <translation>Ritaglio</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>Zoom</translation>
    </message>
    <message>
        <source>Pause or Play</source>
        <translation>Pausa o riproduzione</translation>
    </message>
    <message>
        <source>Fullscreen</source>
        <translation>Schermo intero</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Velocità</translation>
    </message>
    <message>
        <source>Delays</source>
        <translation>Ritardi</translation>
    </message>
</context>
<context>
    <name>PlayerPanel</name>
    <message>
        <source>Nothing playing</source>
        <translation>Nessuna riproduzione</translation>
    </message>
    <message>
        <source>Player</source>
        <translation>Lettore</translation>
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
        <translation>Posizione</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pausa</translation>
    </message>
    <message>
        <source>Next Episode</source>
        <translation>Episodio successivo</translation>
    </message>
    <message>
        <source>Fullscreen</source>
        <translation>Schermo intero</translation>
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
        <translation>Sottotitoli</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Volume</translation>
    </message>
    <message>
        <source>Vol:</source>
        <translation>Vol.:</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Riproduci</translation>
    </message>
    <message>
        <source>Playing: %1</source>
        <translation>In riproduzione: %1</translation>
    </message>
    <message>
        <source>Reconnecting to %1... (attempt %2)</source>
        <translation>Riconnessione a %1... (tentativo %2)</translation>
    </message>
    <message>
        <source>%1 / %2</source>
        <translation>%1 / %2</translation>
    </message>
    <message>
        <source>Continue at %1</source>
        <translation>Continua da %1</translation>
    </message>
</context>
<context>
    <name>PlaylistCopy</name>
    <message>
        <source>The playlist &quot;%1&quot; could not be copied: %2</source>
        <translation>Impossibile copiare la playlist &quot;%1&quot;: %2</translation>
    </message>
</context>
<context>
    <name>QLineEdit</name>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Annulla</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Ripeti</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>&amp;Taglia</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Copia</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Incolla</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Elimina</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Seleziona tutto</translation>
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
        <translation>Salva</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Apri</translation>
    </message>
    <message>
        <source>&amp;Yes</source>
        <translation>&amp;Sì</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>&amp;No</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Riprova</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Chiudi</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annulla</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Non salvare</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Applica</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Ripristina</translation>
    </message>
</context>
<context>
    <name>QWidgetTextControl</name>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Annulla</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Ripeti</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>&amp;Taglia</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Copia</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Incolla</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Elimina</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Seleziona tutto</translation>
    </message>
</context>
<context>
    <name>ReminderKeeper</name>
    <message>
        <source>%1 begins on %2.</source>
        <translation>%1 inizia su %2.</translation>
    </message>
    <message>
        <source>%1 began at %2 on %3.</source>
        <translation>%1 è iniziato alle %2 su %3.</translation>
    </message>
    <message>
        <source>Reminder</source>
        <translation>Promemoria</translation>
    </message>
    <message>
        <source>Watch</source>
        <translation>Guarda</translation>
    </message>
</context>
<context>
    <name>RestoreDialog</name>
    <message>
        <source>Replace: only what the backup holds stays</source>
        <translation>Sostituisci: resta solo il contenuto del backup</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Ripristina</translation>
    </message>
    <message>
        <source>Merge: add what is missing</source>
        <translation>Unisci: aggiungi ciò che manca</translation>
    </message>
    <message>
        <source>Sources:</source>
        <translation>Sorgenti:</translation>
    </message>
    <message>
        <source>Favorites:</source>
        <translation>Preferiti:</translation>
    </message>
    <message>
        <source>Recently watched:</source>
        <translation>Visti di recente:</translation>
    </message>
    <message>
        <source>Positions and watched marks:</source>
        <translation>Posizioni e contrassegni di visione:</translation>
    </message>
    <message>
        <source>Hidden categories:</source>
        <translation>Categorie nascoste:</translation>
    </message>
    <message>
        <source>Settings of programme guides:</source>
        <translation>Impostazioni delle guide TV:</translation>
    </message>
    <message>
        <source>Guide channels that were set by hand:</source>
        <translation>Canali della guida impostati a mano:</translation>
    </message>
    <message>
        <source>Reminders:</source>
        <translation>Promemoria:</translation>
    </message>
    <message>
        <source>Preferred languages:</source>
        <translation>Lingue preferite:</translation>
    </message>
    <message>
        <source>no change</source>
        <translation>nessuna modifica</translation>
    </message>
    <message>
        <source>%1 added, %2 changed, %3 removed</source>
        <translation>%1 aggiunti, %2 modificati, %3 rimossi</translation>
    </message>
    <message>
        <source>The backup has no passwords and keys. Enter them afterwards with &quot;Edit Source...&quot; for: %1</source>
        <translation>Il backup non contiene password e chiavi. Inseriscile in seguito con &quot;Modifica sorgente...&quot; per: %1</translation>
    </message>
    <message>
        <source>The backup has no playlist files. Choose them afterwards with &quot;Edit Source...&quot; for: %1</source>
        <translation>Il backup non contiene i file delle playlist. Sceglili in seguito con &quot;Modifica sorgente...&quot; per: %1</translation>
    </message>
    <message>
        <source>The backup has no passwords in addresses of guides. Enter them afterwards with &quot;Programme Guide...&quot; for: %1</source>
        <translation>Il backup non contiene le password negli indirizzi delle guide. Inseriscile in seguito con &quot;Guida TV...&quot; per: %1</translation>
    </message>
</context>
<context>
    <name>ScheduleDialog</name>
    <message>
        <source>Watch</source>
        <translation>Guarda</translation>
    </message>
    <message>
        <source>Watch from Start</source>
        <translation>Guarda dall&apos;inizio</translation>
    </message>
    <message>
        <source>Schedule of %1</source>
        <translation>Palinsesto di %1</translation>
    </message>
    <message>
        <source>Day</source>
        <translation>Giorno</translation>
    </message>
    <message>
        <source>Programmes</source>
        <translation>Programmi</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Descrizione</translation>
    </message>
    <message>
        <source>The guide&apos;s channel was guessed from the name: %1</source>
        <translation>Il canale della guida è stato dedotto dal nome: %1</translation>
    </message>
    <message>
        <source>Remove Reminder</source>
        <translation>Rimuovi promemoria</translation>
    </message>
    <message>
        <source>Remind Me</source>
        <translation>Ricordamelo</translation>
    </message>
    <message>
        <source>Loading the schedule...</source>
        <translation>Caricamento del palinsesto...</translation>
    </message>
    <message>
        <source>The guide has no programmes of this channel.</source>
        <translation>La guida non contiene programmi di questo canale.</translation>
    </message>
    <message>
        <source>The guide has no programmes of this day.</source>
        <translation>La guida non contiene programmi di questo giorno.</translation>
    </message>
</context>
<context>
    <name>ScheduleItem</name>
    <message>
        <source>On Now</source>
        <translation>In onda</translation>
    </message>
    <message>
        <source>In the Archive</source>
        <translation>Nell&apos;archivio</translation>
    </message>
    <message>
        <source>Reminder Set</source>
        <translation>Promemoria impostato</translation>
    </message>
</context>
<context>
    <name>SleepInhibitor</name>
    <message>
        <source>Playing</source>
        <translation>Riproduzione in corso</translation>
    </message>
</context>
<context>
    <name>SourceBar</name>
    <message>
        <source>More</source>
        <translation>Altro</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Sorgente</translation>
    </message>
    <message>
        <source>Add Source...</source>
        <translation>Aggiungi sorgente...</translation>
    </message>
    <message>
        <source>Edit Source...</source>
        <translation>Modifica sorgente...</translation>
    </message>
    <message>
        <source>Refresh Playlist</source>
        <translation>Aggiorna playlist</translation>
    </message>
    <message>
        <source>Source:</source>
        <translation>Sorgente:</translation>
    </message>
    <message>
        <source>Fetch the catalog of the source again</source>
        <translation>Scarica di nuovo il catalogo della sorgente</translation>
    </message>
</context>
<context>
    <name>SourceDialog</name>
    <message>
        <source>Edit Source</source>
        <translation>Modifica sorgente</translation>
    </message>
    <message>
        <source>Add Source</source>
        <translation>Aggiungi sorgente</translation>
    </message>
    <message>
        <source>M3U Playlist</source>
        <translation>Playlist M3U</translation>
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
        <translation>Tipo di sorgente</translation>
    </message>
    <message>
        <source>Delete Source</source>
        <translation>Elimina sorgente</translation>
    </message>
    <message>
        <source>Source Type:</source>
        <translation>Tipo di sorgente:</translation>
    </message>
    <message>
        <source>http://example.com/playlist.m3u or a local file path</source>
        <translation>http://example.com/playlist.m3u o il percorso di un file locale</translation>
    </message>
    <message>
        <source>Playlist URL/File</source>
        <translation>URL/file della playlist</translation>
    </message>
    <message>
        <source>Upload File...</source>
        <translation>Carica file...</translation>
    </message>
    <message>
        <source>Name:</source>
        <translation>Nome:</translation>
    </message>
    <message>
        <source>Playlist URL/File:</source>
        <translation>URL/file della playlist:</translation>
    </message>
    <message>
        <source>http://example.com:8080</source>
        <translation>http://example.com:8080</translation>
    </message>
    <message>
        <source>Test Connection</source>
        <translation>Prova connessione</translation>
    </message>
    <message>
        <source>Server URL:</source>
        <translation>URL del server:</translation>
    </message>
    <message>
        <source>Username:</source>
        <translation>Nome utente:</translation>
    </message>
    <message>
        <source>Password:</source>
        <translation>Password:</translation>
    </message>
    <message>
        <source>Live Stream Format:</source>
        <translation>Formato dei flussi in diretta:</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Password</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Mostra</translation>
    </message>
    <message>
        <source>Your Zevrino subscription key</source>
        <translation>La tua chiave di abbonamento Zevrino</translation>
    </message>
    <message>
        <source>Subscription Key:</source>
        <translation>Chiave di abbonamento:</translation>
    </message>
    <message>
        <source>Upload M3U Playlist</source>
        <translation>Carica playlist M3U</translation>
    </message>
    <message>
        <source>Playlists (*.m3u *.m3u8);;All Files (*)</source>
        <translation>Playlist (*.m3u *.m3u8);;Tutti i file (*)</translation>
    </message>
    <message>
        <source>Testing...</source>
        <translation>Prova in corso...</translation>
    </message>
    <message>
        <source>Connection OK</source>
        <translation>Connessione riuscita</translation>
    </message>
    <message>
        <source>Failed: %1</source>
        <translation>Non riuscito: %1</translation>
    </message>
    <message>
        <source>Delete source &quot;%1&quot;? This cannot be undone.</source>
        <translation>Eliminare la sorgente &quot;%1&quot;? L&apos;operazione non può essere annullata.</translation>
    </message>
</context>
<context>
    <name>SourceOptionsDialog</name>
    <message>
        <source>Source Options</source>
        <translation>Opzioni della sorgente</translation>
    </message>
    <message>
        <source>Source: %1</source>
        <translation>Sorgente: %1</translation>
    </message>
    <message>
        <source>The usual one</source>
        <translation>Quello abituale</translation>
    </message>
    <message>
        <source>The name under which the player asks this source for its catalog, its guide and its streams. Only some providers want a certain one. A playlist can name another one for a channel.</source>
        <translation>Il nome con cui il lettore chiede a questa sorgente il catalogo, la guida e i flussi. Solo alcuni fornitori ne vogliono uno preciso. Una playlist può indicarne un altro per un canale.</translation>
    </message>
    <message>
        <source>&amp;User agent:</source>
        <translation>&amp;User agent:</translation>
    </message>
    <message>
        <source>A user agent has at most 2048 characters: letters from A to Z, digits, blanks and the other characters of a plain English keyboard.</source>
        <translation>Uno user agent ha al massimo 2048 caratteri: lettere dalla A alla Z, cifre, spazi e gli altri caratteri di una semplice tastiera inglese.</translation>
    </message>
</context>
<context>
    <name>StreamInfoDialog</name>
    <message>
        <source>Stream Info</source>
        <translation>Informazioni sul flusso</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>Aggiorna</translation>
    </message>
</context>
<context>
    <name>TabLibrary</name>
    <message>
        <source>Removed from Recently Watched</source>
        <translation>Rimosso dai visti di recente</translation>
    </message>
    <message>
        <source>Removed from Favorites</source>
        <translation>Rimosso dai preferiti</translation>
    </message>
    <message>
        <source>Marked as Watched</source>
        <translation>Segnato come visto</translation>
    </message>
    <message>
        <source>Marked as Unwatched</source>
        <translation>Segnato come non visto</translation>
    </message>
    <message>
        <source>Category Hidden</source>
        <translation>Categoria nascosta</translation>
    </message>
</context>
<context>
    <name>TrackMenus</name>
    <message>
        <source>Disable</source>
        <translation>Disattiva</translation>
    </message>
    <message>
        <source>Load Subtitle File...</source>
        <translation>Carica file di sottotitoli...</translation>
    </message>
    <message>
        <source>No audio tracks</source>
        <translation>Nessuna traccia audio</translation>
    </message>
    <message>
        <source>Load Subtitle File</source>
        <translation>Carica file di sottotitoli</translation>
    </message>
    <message>
        <source>Subtitles (*.srt *.ass *.ssa *.sub *.vtt);;All Files (*)</source>
        <translation>Sottotitoli (*.srt *.ass *.ssa *.sub *.vtt);;Tutti i file (*)</translation>
    </message>
</context>
<context>
    <name>UndoBar</name>
    <message>
        <source>Undo</source>
        <translation>Annulla</translation>
    </message>
</context>
<context>
    <name>VlcPlayer</name>
    <message>
        <source>The stream stopped advancing for %1 seconds.</source>
        <translation>Il flusso non avanza da %1 secondi.</translation>
    </message>
    <message>
        <source>Could not create media for URL: %1</source>
        <translation>Impossibile creare il contenuto multimediale per l&apos;URL: %1</translation>
    </message>
    <message>
        <source>Playback failed to start for: %1</source>
        <translation>Impossibile avviare la riproduzione di: %1</translation>
    </message>
    <message>
        <source>libVLC encountered an error while streaming.</source>
        <translation>libVLC ha riscontrato un errore durante lo streaming.</translation>
    </message>
    <message>
        <source>The live stream stopped sending data.</source>
        <translation>Il flusso in diretta ha smesso di inviare dati.</translation>
    </message>
    <message>
        <source>Reached the end of the stream (this can also happen if a seek landed somewhere the stream couldn&apos;t resume from).</source>
        <translation>È stata raggiunta la fine del flusso (può accadere anche se si è saltati a un punto da cui il flusso non ha potuto riprendere).</translation>
    </message>
    <message>
        <source>Disable</source>
        <translation>Disattiva</translation>
    </message>
    <message>
        <source>Track %1</source>
        <translation>Traccia %1</translation>
    </message>
    <message>
        <source>Video codec: %1
Resolution: %2x%3
Frame rate: %4 fps

</source>
        <translation>Codec video: %1
Risoluzione: %2x%3
Fotogrammi al secondo: %4 fps

</translation>
    </message>
    <message>
        <source>Audio codec: %1
Sample rate: %2 Hz
Channels: %3

</source>
        <translation>Codec audio: %1
Frequenza di campionamento: %2 Hz
Canali: %3

</translation>
    </message>
    <message>
        <source>Input bitrate: %1 kbps
Demux bitrate: %2 kbps
Decoded video blocks: %3
Decoded audio blocks: %4
Displayed frames: %5   Lost frames: %6
</source>
        <translation>Bitrate in ingresso: %1 kbps
Bitrate del demuxer: %2 kbps
Blocchi video decodificati: %3
Blocchi audio decodificati: %4
Fotogrammi visualizzati: %5   Fotogrammi persi: %6
</translation>
    </message>
    <message>
        <source>No player.</source>
        <translation>Nessun lettore.</translation>
    </message>
    <message>
        <source>No media loaded.</source>
        <translation>Nessun contenuto caricato.</translation>
    </message>
    <message>
        <source>Audio tracks:
</source>
        <translation>Tracce audio:
</translation>
    </message>
    <message>
        <source>Subtitle tracks:
</source>
        <translation>Tracce di sottotitoli:
</translation>
    </message>
    <message>
        <source>No track information available yet.</source>
        <translation>Nessuna informazione sulle tracce ancora disponibile.</translation>
    </message>
</context>
<context>
    <name>XtreamClient</name>
    <message>
        <source>Could not reach server or invalid response</source>
        <translation>Impossibile raggiungere il server o risposta non valida</translation>
    </message>
    <message>
        <source>Authentication failed - check server URL, username, and password</source>
        <translation>Autenticazione non riuscita - controlla l&apos;URL del server, il nome utente e la password</translation>
    </message>
</context>
<context>
    <name>ZevrinoClient</name>
    <message>
        <source>Invalid response from server</source>
        <translation>Risposta non valida dal server</translation>
    </message>
    <message>
        <source>Subscription could not be resolved</source>
        <translation>Impossibile risolvere l&apos;abbonamento</translation>
    </message>
    <message>
        <source>Server response was missing credentials</source>
        <translation>Nella risposta del server mancavano le credenziali</translation>
    </message>
    <message>
        <source>Could not reach server: %1</source>
        <translation>Impossibile raggiungere il server: %1</translation>
    </message>
</context>
</TS>
