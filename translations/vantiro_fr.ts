<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>AccountInformationDialog</name>
    <message>
        <source>Account Information</source>
        <translation>Informations du compte</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Source</translation>
    </message>
    <message>
        <source>Asking the server...</source>
        <translation>Interrogation du serveur...</translation>
    </message>
    <message>
        <source>The server could not be reached, or its answer cannot be read.</source>
        <translation>Le serveur est injoignable ou sa réponse est illisible.</translation>
    </message>
    <message>
        <source>The server does not accept this account, or tells nothing about it.</source>
        <translation>Le serveur n&apos;accepte pas ce compte ou n&apos;en dit rien.</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Inconnu</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>État</translation>
    </message>
    <message>
        <source>Expires</source>
        <translation>Expiration</translation>
    </message>
    <message>
        <source>Never</source>
        <translation>Jamais</translation>
    </message>
    <message>
        <source>Trial</source>
        <translation>Essai</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Oui</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Non</translation>
    </message>
    <message>
        <source>Connections in use</source>
        <translation>Connexions utilisées</translation>
    </message>
    <message>
        <source>Connections allowed</source>
        <translation>Connexions autorisées</translation>
    </message>
    <message>
        <source>Formats</source>
        <translation>Formats</translation>
    </message>
    <message>
        <source>Time zone of the server</source>
        <translation>Fuseau horaire du serveur</translation>
    </message>
</context>
<context>
    <name>BrowseTab</name>
    <message>
        <source>Live TV</source>
        <translation>TV en direct</translation>
    </message>
    <message>
        <source>Search all channels...</source>
        <translation>Rechercher dans toutes les chaînes...</translation>
    </message>
    <message>
        <source>Channels</source>
        <translation>Chaînes</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>Chaîne</translation>
    </message>
    <message>
        <source>Movies</source>
        <translation>Films</translation>
    </message>
    <message>
        <source>Search all movies...</source>
        <translation>Rechercher dans tous les films...</translation>
    </message>
    <message>
        <source>TV Shows</source>
        <translation>Séries</translation>
    </message>
    <message>
        <source>Search all shows...</source>
        <translation>Rechercher dans toutes les séries...</translation>
    </message>
    <message>
        <source>Shows</source>
        <translation>Séries</translation>
    </message>
    <message>
        <source>Select a category:</source>
        <translation>Sélectionnez une catégorie&#xa0;:</translation>
    </message>
    <message>
        <source>Categories</source>
        <translation>Catégories</translation>
    </message>
    <message>
        <source>Search...</source>
        <translation>Rechercher...</translation>
    </message>
    <message>
        <source>Sort by</source>
        <translation>Trier par</translation>
    </message>
    <message>
        <source>Name (A-Z)</source>
        <translation>Nom (A-Z)</translation>
    </message>
    <message>
        <source>Recently Added</source>
        <translation>Ajouts récents</translation>
    </message>
    <message>
        <source>Rating</source>
        <translation>Note</translation>
    </message>
    <message>
        <source>&lt; Back to Categories</source>
        <translation>&lt; Retour aux catégories</translation>
    </message>
    <message>
        <source>All Categories</source>
        <translation>Toutes les catégories</translation>
    </message>
    <message>
        <source>Search: &quot;%1&quot;</source>
        <translation>Recherche&#xa0;: «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>Guide</source>
        <translation>Guide</translation>
    </message>
    <message>
        <source>Show the programme guide</source>
        <translation>Afficher le guide des programmes</translation>
    </message>
    <message>
        <source>Remove from Favorites</source>
        <translation>Retirer des favoris</translation>
    </message>
    <message>
        <source>Add to Favorites</source>
        <translation>Ajouter aux favoris</translation>
    </message>
    <message>
        <source>Remove from List</source>
        <translation>Retirer de la liste</translation>
    </message>
    <message>
        <source>Mark as Watched</source>
        <translation>Marquer comme vu</translation>
    </message>
    <message>
        <source>Mark as Unwatched</source>
        <translation>Marquer comme non vu</translation>
    </message>
</context>
<context>
    <name>CatchUpPlayer</name>
    <message>
        <source>The archive does not tell how to play this programme.</source>
        <translation>L&apos;archive n&apos;indique pas comment lire ce programme.</translation>
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
        <translation>Favoris</translation>
    </message>
    <message>
        <source>Continue Watching</source>
        <translation>Reprendre</translation>
    </message>
    <message>
        <source>Recently Watched</source>
        <translation>Vus récemment</translation>
    </message>
    <message>
        <source>All Categories</source>
        <translation>Toutes les catégories</translation>
    </message>
    <message>
        <source>Hidden</source>
        <translation>Masquées</translation>
    </message>
    <message>
        <source>Unhide Category</source>
        <translation>Ne plus masquer la catégorie</translation>
    </message>
    <message>
        <source>Hide Category</source>
        <translation>Masquer la catégorie</translation>
    </message>
    <message>
        <source>Show Hidden Categories</source>
        <translation>Afficher les catégories masquées</translation>
    </message>
</context>
<context>
    <name>ClearHistoryDialog</name>
    <message>
        <source>Recently watched</source>
        <translation>Vus récemment</translation>
    </message>
    <message>
        <source>Positions and watched marks</source>
        <translation>Positions et marques «&#xa0;vu&#xa0;»</translation>
    </message>
    <message>
        <source>Clear History</source>
        <translation>Effacer l&apos;historique</translation>
    </message>
    <message>
        <source>What goes, of all sources? Favorites and hidden categories stay.</source>
        <translation>Que faut-il effacer, pour toutes les sources&#xa0;? Les favoris et les catégories masquées sont conservés.</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Effacer</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>Subscription service: %1</source>
        <translation>Service d&apos;abonnement&#xa0;: %1</translation>
    </message>
    <message>
        <source>A player for internet television.</source>
        <translation>Un lecteur pour la télévision par Internet.</translation>
    </message>
    <message>
        <source>Displays version information.</source>
        <translation>Affiche les informations de version.</translation>
    </message>
    <message>
        <source>Playlists, films and streams to open: files or URLs.</source>
        <translation>Listes de lecture, films et flux à ouvrir&#xa0;: fichiers ou URL.</translation>
    </message>
</context>
<context>
    <name>EntryMarks</name>
    <message>
        <source>Favorite</source>
        <translation>Favori</translation>
    </message>
    <message>
        <source>Watched</source>
        <translation>Vu</translation>
    </message>
    <message>
        <source>%1 % watched</source>
        <translation>%1 % vu</translation>
    </message>
</context>
<context>
    <name>EntryTable</name>
    <message>
        <source>Move Up</source>
        <translation>Monter</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>Descendre</translation>
    </message>
</context>
<context>
    <name>EpisodePage</name>
    <message>
        <source>&lt; Back to Shows</source>
        <translation>&lt; Retour aux séries</translation>
    </message>
    <message>
        <source>Episodes</source>
        <translation>Épisodes</translation>
    </message>
    <message>
        <source>E%1 - %2</source>
        <translation>E%1 - %2</translation>
    </message>
    <message>
        <source>Season %1</source>
        <translation>Saison %1</translation>
    </message>
    <message>
        <source>Mark as Watched</source>
        <translation>Marquer comme vu</translation>
    </message>
    <message>
        <source>Mark as Unwatched</source>
        <translation>Marquer comme non vu</translation>
    </message>
</context>
<context>
    <name>GuideAddressList</name>
    <message>
        <source>Addresses of guides, the preferred one first</source>
        <translation>Adresses des guides, la préférée en premier</translation>
    </message>
    <message>
        <source>Add Address...</source>
        <translation>Ajouter une adresse...</translation>
    </message>
    <message>
        <source>Add File...</source>
        <translation>Ajouter un fichier...</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Retirer</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>Monter</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>Descendre</translation>
    </message>
    <message>
        <source>Add Account&apos;s Guide</source>
        <translation>Ajouter le guide du compte</translation>
    </message>
    <message>
        <source>Add Playlist&apos;s Guide</source>
        <translation>Ajouter le guide de la liste de lecture</translation>
    </message>
    <message>
        <source>Add File</source>
        <translation>Ajouter un fichier</translation>
    </message>
    <message>
        <source>Guides (*.xml *.xmltv *.gz);;All Files (*)</source>
        <translation>Guides (*.xml *.xmltv *.gz);;Tous les fichiers (*)</translation>
    </message>
</context>
<context>
    <name>GuideChannelDialog</name>
    <message>
        <source>Automatic: find it by its id and name</source>
        <translation>Automatique&#xa0;: d&apos;après son identifiant et son nom</translation>
    </message>
    <message>
        <source>No guide for this channel</source>
        <translation>Aucun guide pour cette chaîne</translation>
    </message>
    <message>
        <source>This channel of the guide:</source>
        <translation>Cette chaîne du guide&#xa0;:</translation>
    </message>
    <message>
        <source>Guide Channel</source>
        <translation>Chaîne du guide</translation>
    </message>
    <message>
        <source>Channel: %1</source>
        <translation>Chaîne&#xa0;: %1</translation>
    </message>
    <message>
        <source>Confirm Suggestion</source>
        <translation>Confirmer la suggestion</translation>
    </message>
    <message>
        <source>Found by the id that the source names: %1</source>
        <translation>Trouvée d&apos;après l&apos;identifiant que la source indique&#xa0;: %1</translation>
    </message>
    <message>
        <source>Found by the name that the source gives for the guide: %1</source>
        <translation>Trouvée d&apos;après le nom que la source donne pour le guide&#xa0;: %1</translation>
    </message>
    <message>
        <source>Found by the channel&apos;s name: %1</source>
        <translation>Trouvée d&apos;après le nom de la chaîne&#xa0;: %1</translation>
    </message>
    <message>
        <source>Suggested, since the names are alike: %1</source>
        <translation>Suggérée, car les noms se ressemblent&#xa0;: %1</translation>
    </message>
    <message>
        <source>Search the guide&apos;s channels</source>
        <translation>Rechercher dans les chaînes du guide</translation>
    </message>
    <message>
        <source>Search the guide&apos;s channels...</source>
        <translation>Rechercher dans les chaînes du guide...</translation>
    </message>
    <message>
        <source>Channels of the guide</source>
        <translation>Chaînes du guide</translation>
    </message>
    <message>
        <source>No channel of the guide contains this text.</source>
        <translation>Aucune chaîne du guide ne contient ce texte.</translation>
    </message>
    <message>
        <source>Only the first %1 are shown. Type more of the name.</source>
        <translation>Seules les %1 premières sont affichées. Saisissez davantage du nom.</translation>
    </message>
</context>
<context>
    <name>GuideDialog</name>
    <message>
        <source>Show a programme guide for this source</source>
        <translation>Afficher un guide des programmes pour cette source</translation>
    </message>
    <message>
        <source>Refresh every 12 hours</source>
        <translation>Actualiser toutes les 12 heures</translation>
    </message>
    <message>
        <source>Update Now</source>
        <translation>Mettre à jour</translation>
    </message>
    <message>
        <source>Cancel Update</source>
        <translation>Annuler la mise à jour</translation>
    </message>
    <message>
        <source>Programme Guide</source>
        <translation>Guide des programmes</translation>
    </message>
    <message>
        <source>Source: %1</source>
        <translation>Source&#xa0;: %1</translation>
    </message>
    <message>
        <source> hours</source>
        <translation> heures</translation>
    </message>
    <message>
        <source>Where the guide comes from, in order of preference:</source>
        <translation>Origine du guide, par ordre de préférence&#xa0;:</translation>
    </message>
    <message>
        <source>Shift all times by:</source>
        <translation>Décaler toutes les heures de&#xa0;:</translation>
    </message>
    <message>
        <source>Progress of the update</source>
        <translation>Progression de la mise à jour</translation>
    </message>
</context>
<context>
    <name>GuideGrid</name>
    <message>
        <source>Programme guide</source>
        <translation>Guide des programmes</translation>
    </message>
    <message>
        <source>in the archive</source>
        <translation>dans l&apos;archive</translation>
    </message>
    <message>
        <source>No information</source>
        <translation>Aucune information</translation>
    </message>
</context>
<context>
    <name>GuideResult</name>
    <message>
        <source>The account&apos;s own guide</source>
        <translation>Le guide propre au compte</translation>
    </message>
    <message>
        <source>The guide of the last update stays.</source>
        <translation>Le guide de la dernière mise à jour est conservé.</translation>
    </message>
    <message>
        <source>The update was cancelled. The guide of the last update stays.</source>
        <translation>La mise à jour a été annulée. Le guide de la dernière mise à jour est conservé.</translation>
    </message>
    <message>
        <source>Last update: %1</source>
        <translation>Dernière mise à jour&#xa0;: %1</translation>
    </message>
    <message>
        <source>Programmes: %1</source>
        <translation>Programmes&#xa0;: %1</translation>
    </message>
    <message>
        <source>Channels with a guide: %1 of %2</source>
        <translation>Chaînes avec un guide&#xa0;: %1 sur %2</translation>
    </message>
    <message>
        <source>Of these, only suggested: %1. Confirm or change them with &quot;Guide Channel...&quot; in a channel&apos;s menu.</source>
        <translation>Dont seulement suggérées&#xa0;: %1. Confirmez-les ou modifiez-les avec «&#xa0;Chaîne du guide...&#xa0;» dans le menu d&apos;une chaîne.</translation>
    </message>
    <message>
        <source>The last programme begins: %1</source>
        <translation>Le dernier programme commence&#xa0;: %1</translation>
    </message>
    <message>
        <source>%1 cannot be reached: %2</source>
        <translation>%1 est injoignable&#xa0;: %2</translation>
    </message>
    <message>
        <source>%1 cannot be opened: %2</source>
        <translation>%1 ne peut pas être ouvert&#xa0;: %2</translation>
    </message>
    <message>
        <source>%1 is no guide. It may be a page or an error message.</source>
        <translation>%1 n&apos;est pas un guide. Il s&apos;agit peut-être d&apos;une page ou d&apos;un message d&apos;erreur.</translation>
    </message>
    <message>
        <source>%1 is packed in a form other than gzip, which cannot be read.</source>
        <translation>%1 est compressé sous une autre forme que gzip, qui ne peut pas être lue.</translation>
    </message>
    <message>
        <source>%1 is damaged and cannot be unpacked.</source>
        <translation>%1 est endommagé et ne peut pas être décompressé.</translation>
    </message>
    <message>
        <source>%1 ends early. It was not taken.</source>
        <translation>%1 se termine trop tôt et n&apos;a pas été repris.</translation>
    </message>
    <message>
        <source>%1 is too large.</source>
        <translation>%1 est trop volumineux.</translation>
    </message>
    <message>
        <source>%1 has no programmes of the channels of this source.</source>
        <translation>%1 ne contient aucun programme des chaînes de cette source.</translation>
    </message>
    <message>
        <source>%1 cannot be stored: %2</source>
        <translation>%1 ne peut pas être enregistré&#xa0;: %2</translation>
    </message>
    <message>
        <source>What the source tells of its channels cannot be read: %1</source>
        <translation>Les indications de la source sur ses chaînes ne peuvent pas être lues&#xa0;: %1</translation>
    </message>
    <message numerus="yes">
        <source>%1: %Ln programmes. The time zone of some is not known; they may be shown at the wrong hour.</source>
        <translation>
            <numerusform>%1&#xa0;: %Ln programme. Le fuseau horaire de certains est inconnu&#xa0;; ils peuvent être affichés à la mauvaise heure.</numerusform>
            <numerusform>%1&#xa0;: %Ln programmes. Le fuseau horaire de certains est inconnu&#xa0;; ils peuvent être affichés à la mauvaise heure.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1: %Ln programmes.</source>
        <translation>
            <numerusform>%1&#xa0;: %Ln programme.</numerusform>
            <numerusform>%1&#xa0;: %Ln programmes.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>GuideSearchList</name>
    <message>
        <source>Programmes found</source>
        <translation>Programmes trouvés</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Heure</translation>
    </message>
    <message>
        <source>Programme</source>
        <translation>Programme</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>Chaîne</translation>
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
        <translation>Hier</translation>
    </message>
    <message>
        <source>Today</source>
        <translation>Aujourd&apos;hui</translation>
    </message>
    <message>
        <source>Tomorrow</source>
        <translation>Demain</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <translation>%1 %2</translation>
    </message>
    <message>
        <source>Yesterday %1</source>
        <translation>Hier %1</translation>
    </message>
    <message>
        <source>Today %1</source>
        <translation>Aujourd&apos;hui %1</translation>
    </message>
    <message>
        <source>Tomorrow %1</source>
        <translation>Demain %1</translation>
    </message>
</context>
<context>
    <name>GuideView</name>
    <message>
        <source>Now</source>
        <translation>Maintenant</translation>
    </message>
    <message>
        <source>Show what runs now</source>
        <translation>Afficher ce qui passe maintenant</translation>
    </message>
    <message>
        <source>Previous day</source>
        <translation>Jour précédent</translation>
    </message>
    <message>
        <source>Day</source>
        <translation>Jour</translation>
    </message>
    <message>
        <source>Next day</source>
        <translation>Jour suivant</translation>
    </message>
    <message>
        <source>Search programmes...</source>
        <translation>Rechercher des programmes...</translation>
    </message>
    <message>
        <source>No programme found.</source>
        <translation>Aucun programme trouvé.</translation>
    </message>
    <message>
        <source>%1  %2 (in the archive)</source>
        <translation>%1  %2 (dans l&apos;archive)</translation>
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
        <translation>Les favoris et les positions ne peuvent pas être enregistrés&#xa0;: %1</translation>
    </message>
    <message>
        <source>Favorites and positions were stored by a newer version of this program. They stay as they are, and changes are not stored.</source>
        <translation>Les favoris et les positions ont été enregistrés par une version plus récente de ce programme. Ils restent tels quels et les modifications ne sont pas enregistrées.</translation>
    </message>
    <message>
        <source>The file with your favorites and positions was damaged. It was kept as &quot;%1&quot;, and a new one was begun.</source>
        <translation>Le fichier de vos favoris et positions était endommagé. Il a été conservé sous le nom «&#xa0;%1&#xa0;» et un nouveau fichier a été créé.</translation>
    </message>
</context>
<context>
    <name>LibraryBackup</name>
    <message>
        <source>This file is not a backup of Vantiro Player, or it is damaged.</source>
        <translation>Ce fichier n&apos;est pas une sauvegarde de Vantiro Player ou il est endommagé.</translation>
    </message>
    <message>
        <source>This backup was made by a newer version of Vantiro Player.</source>
        <translation>Cette sauvegarde a été créée par une version plus récente de Vantiro Player.</translation>
    </message>
    <message>
        <source>This backup is damaged: its part &quot;%1&quot; cannot be read.</source>
        <translation>Cette sauvegarde est endommagée&#xa0;: sa partie «&#xa0;%1&#xa0;» ne peut pas être lue.</translation>
    </message>
    <message>
        <source>The backup cannot be written: %1</source>
        <translation>La sauvegarde ne peut pas être écrite&#xa0;: %1</translation>
    </message>
    <message>
        <source>The backup cannot be read: %1</source>
        <translation>La sauvegarde ne peut pas être lue&#xa0;: %1</translation>
    </message>
</context>
<context>
    <name>LoadingOverlay</name>
    <message>
        <source>Loading...</source>
        <translation>Chargement...</translation>
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
        <translation>Veuillez indiquer une clé d&apos;abonnement valide.</translation>
    </message>
    <message>
        <source>Please provide a valid URL/path.</source>
        <translation>Veuillez indiquer une URL ou un chemin valide.</translation>
    </message>
    <message>
        <source>%1 until %2</source>
        <translation>%1 jusqu&apos;à %2</translation>
    </message>
    <message>
        <source>Next: %1 %2</source>
        <translation>Ensuite&#xa0;: %1 %2</translation>
    </message>
    <message>
        <source>Watch from Start</source>
        <translation>Regarder depuis le début</translation>
    </message>
    <message>
        <source>Schedule</source>
        <translation>Programmation</translation>
    </message>
    <message>
        <source>Guide Channel...</source>
        <translation>Chaîne du guide...</translation>
    </message>
    <message>
        <source>Favorites and Positions</source>
        <translation>Favoris et positions</translation>
    </message>
    <message>
        <source>Removed from Favorites</source>
        <translation>Retiré des favoris</translation>
    </message>
    <message>
        <source>Added to Favorites</source>
        <translation>Ajouté aux favoris</translation>
    </message>
    <message>
        <source>Marked as Watched</source>
        <translation>Marqué comme vu</translation>
    </message>
    <message>
        <source>Marked as Unwatched</source>
        <translation>Marqué comme non vu</translation>
    </message>
    <message>
        <source>History cleared</source>
        <translation>Historique effacé</translation>
    </message>
    <message>
        <source>Back Up</source>
        <translation>Sauvegarder</translation>
    </message>
    <message>
        <source>The backup holds your sources, favorites, history, positions, hidden categories, the settings of programme guides and reminders.</source>
        <translation>La sauvegarde contient vos sources, favoris, historique, positions, catégories masquées, paramètres des guides des programmes et rappels.</translation>
    </message>
    <message>
        <source>The backup holds your sources, favorites, history, positions and hidden categories.</source>
        <translation>La sauvegarde contient vos sources, favoris, historique, positions et catégories masquées.</translation>
    </message>
    <message>
        <source>Whoever has the file can read the passwords and keys in it.</source>
        <translation>Quiconque possède le fichier peut lire les mots de passe et les clés qu&apos;il contient.</translation>
    </message>
    <message>
        <source>Include passwords and keys</source>
        <translation>Inclure les mots de passe et les clés</translation>
    </message>
    <message>
        <source>Backups (*.json);;All Files (*)</source>
        <translation>Sauvegardes (*.json);;Tous les fichiers (*)</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Restaurer</translation>
    </message>
    <message>
        <source>The backup could not be restored. Everything is as it was.</source>
        <translation>La sauvegarde n&apos;a pas pu être restaurée. Rien n&apos;a changé.</translation>
    </message>
    <message>
        <source>Vantiro Player %1
A player for internet television.
Copyright 2026 Vantiro. All rights reserved.

With Qt %2 (LGPL 3), libVLC %3 (LGPL 2.1 or later) and RapidJSON (MIT). The texts of these licences come with the package.</source>
        <translation>Vantiro Player %1
Un lecteur pour la télévision par Internet.
Copyright 2026 Vantiro. Tous droits réservés.

Avec Qt %2 (LGPL 3), libVLC %3 (LGPL 2.1 ou ultérieure) et RapidJSON (MIT). Les textes de ces licences sont fournis avec le paquet.</translation>
    </message>
    <message>
        <source>About</source>
        <translation>À propos</translation>
    </message>
    <message>
        <source>Playback Error</source>
        <translation>Erreur de lecture</translation>
    </message>
    <message>
        <source>Zevrino</source>
        <translation>Zevrino</translation>
    </message>
    <message>
        <source>Failed to load subscription: %1</source>
        <translation>Impossible de charger l&apos;abonnement&#xa0;: %1</translation>
    </message>
    <message>
        <source>Load Playlist</source>
        <translation>Charger une liste de lecture</translation>
    </message>
    <message>
        <source>Failed to open file: %1</source>
        <translation>Impossible d&apos;ouvrir le fichier&#xa0;: %1</translation>
    </message>
    <message>
        <source>Failed to download playlist: %1</source>
        <translation>Impossible de télécharger la liste de lecture&#xa0;: %1</translation>
    </message>
    <message>
        <source>No channel %1</source>
        <translation>Aucune chaîne %1</translation>
    </message>
    <message>
        <source>Leave fullscreen first</source>
        <translation>Quittez d&apos;abord le plein écran</translation>
    </message>
    <message>
        <source>Shift+P or Escape leaves the small window</source>
        <translation>Pour quitter : Maj+P ou Échap</translation>
    </message>
    <message>
        <source>It is not a film or a stream that can be played.</source>
        <translation>Ce n&apos;est pas un film ni un flux qui peut être lu.</translation>
    </message>
    <message>
        <source>Open File</source>
        <translation>Ouvrir un fichier</translation>
    </message>
    <message>
        <source>Videos and Playlists (%1);;All Files (*)</source>
        <translation>Vidéos et listes de lecture (%1);;Tous les fichiers (*)</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Ouvrir</translation>
    </message>
    <message>
        <source>This could not be opened:</source>
        <translation>Impossible d&apos;ouvrir&#xa0;:</translation>
    </message>
</context>
<context>
    <name>MoreMenu</name>
    <message>
        <source>Clear History...</source>
        <translation>Effacer l&apos;historique...</translation>
    </message>
    <message>
        <source>More</source>
        <translation>Plus</translation>
    </message>
    <message>
        <source>Back Up...</source>
        <translation>Sauvegarder...</translation>
    </message>
    <message>
        <source>Restore...</source>
        <translation>Restaurer...</translation>
    </message>
    <message>
        <source>Programme Guide...</source>
        <translation>Guide des programmes...</translation>
    </message>
    <message>
        <source>Account Information...</source>
        <translation>Informations du compte...</translation>
    </message>
    <message>
        <source>About</source>
        <translation>À propos</translation>
    </message>
    <message>
        <source>Open File...</source>
        <translation>Ouvrir un fichier...</translation>
    </message>
    <message>
        <source>Open Location...</source>
        <translation>Ouvrir une adresse...</translation>
    </message>
    <message>
        <source>Source Options...</source>
        <translation>Options de la source...</translation>
    </message>
</context>
<context>
    <name>OnNow</name>
    <message>
        <source>Now</source>
        <translation>Maintenant</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Ensuite</translation>
    </message>
    <message>
        <source>This guide channel is a suggestion.</source>
        <translation>Cette chaîne du guide est une suggestion.</translation>
    </message>
</context>
<context>
    <name>OpenLocationDialog</name>
    <message>
        <source>Open Location</source>
        <translation>Ouvrir une adresse</translation>
    </message>
    <message>
        <source>http://example.com/stream.ts or a local file path</source>
        <translation>http://example.com/stream.ts ou le chemin d&apos;un fichier local</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Ouvrir</translation>
    </message>
    <message>
        <source>Address:</source>
        <translation>Adresse&#xa0;:</translation>
    </message>
</context>
<context>
    <name>OpenTarget</name>
    <message>
        <source>The file does not exist.</source>
        <translation>Le fichier n&apos;existe pas.</translation>
    </message>
    <message>
        <source>It is a folder.</source>
        <translation>C&apos;est un dossier.</translation>
    </message>
    <message>
        <source>Addresses that begin with &quot;%1:&quot; are not supported.</source>
        <translation>Les adresses qui commencent par «&#xa0;%1:&#xa0;» ne sont pas prises en charge.</translation>
    </message>
    <message>
        <source>The address names no server.</source>
        <translation>L&apos;adresse n&apos;indique aucun serveur.</translation>
    </message>
</context>
<context>
    <name>PlaybackErrorBox</name>
    <message>
        <source>Playback Error</source>
        <translation>Erreur de lecture</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Réessayer</translation>
    </message>
</context>
<context>
    <name>PlaybackSession</name>
    <message>
        <source>Playback stopped: %1</source>
        <translation>Lecture arrêtée&#xa0;: %1</translation>
    </message>
    <message>
        <source>The archive sent nothing that plays.</source>
        <translation>L&apos;archive n&apos;a rien envoyé de lisible.</translation>
    </message>
    <message>
        <source>The archive stopped sending data.</source>
        <translation>L&apos;archive a cessé d&apos;envoyer des données.</translation>
    </message>
</context>
<context>
    <name>PlayerCommands</name>
    <message>
        <source>Picture saved: %1</source>
        <translation>Image enregistrée&#xa0;: %1</translation>
    </message>
    <message>
        <source>The picture could not be saved in %1.</source>
        <translation>L&apos;image n&apos;a pas pu être enregistrée dans %1.</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Suivant</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>Précédent</translation>
    </message>
    <message>
        <source>Last Channel</source>
        <translation>Dernière chaîne</translation>
    </message>
    <message>
        <source>Slower</source>
        <translation>Plus lent</translation>
    </message>
    <message>
        <source>Faster</source>
        <translation>Plus vite</translation>
    </message>
    <message>
        <source>Normal Speed</source>
        <translation>Vitesse normale</translation>
    </message>
    <message>
        <source>Sound Earlier</source>
        <translation>Son plus tôt</translation>
    </message>
    <message>
        <source>Sound Later</source>
        <translation>Son plus tard</translation>
    </message>
    <message>
        <source>Subtitles Earlier</source>
        <translation>Sous-titres plus tôt</translation>
    </message>
    <message>
        <source>Subtitles Later</source>
        <translation>Sous-titres plus tard</translation>
    </message>
    <message>
        <source>Next Aspect Ratio</source>
        <translation>Format d&apos;image suivant</translation>
    </message>
    <message>
        <source>Next Crop</source>
        <translation>Rognage suivant</translation>
    </message>
    <message>
        <source>Next Zoom</source>
        <translation>Zoom suivant</translation>
    </message>
    <message>
        <source>Deinterlace</source>
        <translation>Désentrelacer</translation>
    </message>
    <message>
        <source>Next Audio Track</source>
        <translation>Piste audio suivante</translation>
    </message>
    <message>
        <source>Next Subtitle Track</source>
        <translation>Piste de sous-titres suivante</translation>
    </message>
    <message>
        <source>Save Picture</source>
        <translation>Enregistrer l&apos;image</translation>
    </message>
    <message>
        <source>Always on Top</source>
        <translation>Toujours au premier plan</translation>
    </message>
    <message>
        <source>Small Window</source>
        <translation>Petite fenêtre</translation>
    </message>
    <message>
        <source>Nothing playing</source>
        <translation>Aucune lecture</translation>
    </message>
    <message>
        <source>Channel %1</source>
        <translation>Chaîne %1</translation>
    </message>
    <message>
        <source>A live channel has no other speed</source>
        <translation>Une chaîne en direct n&apos;a pas d&apos;autre vitesse</translation>
    </message>
    <message>
        <source>Speed: %1x</source>
        <translation>Vitesse&#xa0;: %1x</translation>
    </message>
    <message>
        <source>Audio delay: %1 ms</source>
        <translation>Décalage audio&#xa0;: %1 ms</translation>
    </message>
    <message>
        <source>Subtitle delay: %1 ms</source>
        <translation>Décalage des sous-titres&#xa0;: %1 ms</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>Par défaut</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>Fit to Window</source>
        <translation>Ajuster à la fenêtre</translation>
    </message>
    <message>
        <source>Aspect ratio: %1</source>
        <translation>Format d&apos;image&#xa0;: %1</translation>
    </message>
    <message>
        <source>Crop: %1</source>
        <translation>Rognage&#xa0;: %1</translation>
    </message>
    <message>
        <source>Zoom: %1</source>
        <translation>Zoom&#xa0;: %1</translation>
    </message>
    <message>
        <source>Deinterlacing: on</source>
        <translation>Désentrelacement&#xa0;: activé</translation>
    </message>
    <message>
        <source>Deinterlacing: off</source>
        <translation>Désentrelacement&#xa0;: désactivé</translation>
    </message>
    <message>
        <source>No audio tracks</source>
        <translation>Aucune piste audio</translation>
    </message>
    <message>
        <source>Audio track: %1</source>
        <translation>Piste audio&#xa0;: %1</translation>
    </message>
    <message>
        <source>No subtitles</source>
        <translation>Pas de sous-titres</translation>
    </message>
    <message>
        <source>Subtitles: %1</source>
        <translation>Sous-titres&#xa0;: %1</translation>
    </message>
    <message>
        <source>Subtitles: off</source>
        <translation>Sous-titres&#xa0;: désactivés</translation>
    </message>
    <message>
        <source>Always on top: on</source>
        <translation>Toujours au premier plan&#xa0;: activé</translation>
    </message>
    <message>
        <source>Always on top: off</source>
        <translation>Toujours au premier plan&#xa0;: désactivé</translation>
    </message>
</context>
<context>
    <name>PlayerMenu</name>
    <message>
        <source>Aspect Ratio</source>
        <translation>Format d&apos;image</translation>
    </message>
    <message>
        <source>Crop</source>
        <translation>Rognage</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>Zoom</translation>
    </message>
    <message>
        <source>Pause or Play</source>
        <translation>Pause ou lecture</translation>
    </message>
    <message>
        <source>Fullscreen</source>
        <translation>Plein écran</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Vitesse</translation>
    </message>
    <message>
        <source>Delays</source>
        <translation>Décalages</translation>
    </message>
</context>
<context>
    <name>PlayerPanel</name>
    <message>
        <source>Nothing playing</source>
        <translation>Aucune lecture</translation>
    </message>
    <message>
        <source>Player</source>
        <translation>Lecteur</translation>
    </message>
    <message>
        <source>Video</source>
        <translation>Vidéo</translation>
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
        <translation>Épisode suivant</translation>
    </message>
    <message>
        <source>Fullscreen</source>
        <translation>Plein écran</translation>
    </message>
    <message>
        <source>Info</source>
        <translation>Infos</translation>
    </message>
    <message>
        <source>Audio</source>
        <translation>Audio</translation>
    </message>
    <message>
        <source>Subtitles</source>
        <translation>Sous-titres</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Volume</translation>
    </message>
    <message>
        <source>Vol:</source>
        <translation>Vol.&#xa0;:</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Lecture</translation>
    </message>
    <message>
        <source>Playing: %1</source>
        <translation>Lecture&#xa0;: %1</translation>
    </message>
    <message>
        <source>Reconnecting to %1... (attempt %2)</source>
        <translation>Reconnexion à %1... (tentative %2)</translation>
    </message>
    <message>
        <source>%1 / %2</source>
        <translation>%1 / %2</translation>
    </message>
    <message>
        <source>Continue at %1</source>
        <translation>Reprendre à %1</translation>
    </message>
</context>
<context>
    <name>PlaylistCopy</name>
    <message>
        <source>The playlist &quot;%1&quot; could not be copied: %2</source>
        <translation>La liste de lecture «&#xa0;%1&#xa0;» n&apos;a pas pu être copiée&#xa0;: %2</translation>
    </message>
</context>
<context>
    <name>QLineEdit</name>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Annuler</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Rétablir</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>Co&amp;uper</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Copier</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>C&amp;oller</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Supprimer</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Tout sélectionner</translation>
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
        <translation>Enregistrer</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Ouvrir</translation>
    </message>
    <message>
        <source>&amp;Yes</source>
        <translation>&amp;Oui</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>&amp;Non</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Réessayer</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Ne pas enregistrer</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Appliquer</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Réinitialiser</translation>
    </message>
</context>
<context>
    <name>QWidgetTextControl</name>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Annuler</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Rétablir</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>Co&amp;uper</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Copier</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>C&amp;oller</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Supprimer</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Tout sélectionner</translation>
    </message>
</context>
<context>
    <name>ReminderKeeper</name>
    <message>
        <source>%1 begins on %2.</source>
        <translation>%1 commence sur %2.</translation>
    </message>
    <message>
        <source>%1 began at %2 on %3.</source>
        <translation>%1 a commencé à %2 sur %3.</translation>
    </message>
    <message>
        <source>Reminder</source>
        <translation>Rappel</translation>
    </message>
    <message>
        <source>Watch</source>
        <translation>Regarder</translation>
    </message>
</context>
<context>
    <name>RestoreDialog</name>
    <message>
        <source>Replace: only what the backup holds stays</source>
        <translation>Remplacer&#xa0;: seul le contenu de la sauvegarde reste</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Restaurer</translation>
    </message>
    <message>
        <source>Merge: add what is missing</source>
        <translation>Fusionner&#xa0;: ajouter ce qui manque</translation>
    </message>
    <message>
        <source>Sources:</source>
        <translation>Sources&#xa0;:</translation>
    </message>
    <message>
        <source>Favorites:</source>
        <translation>Favoris&#xa0;:</translation>
    </message>
    <message>
        <source>Recently watched:</source>
        <translation>Vus récemment&#xa0;:</translation>
    </message>
    <message>
        <source>Positions and watched marks:</source>
        <translation>Positions et marques «&#xa0;vu&#xa0;»&#xa0;:</translation>
    </message>
    <message>
        <source>Hidden categories:</source>
        <translation>Catégories masquées&#xa0;:</translation>
    </message>
    <message>
        <source>Settings of programme guides:</source>
        <translation>Paramètres des guides des programmes&#xa0;:</translation>
    </message>
    <message>
        <source>Guide channels that were set by hand:</source>
        <translation>Chaînes du guide définies à la main&#xa0;:</translation>
    </message>
    <message>
        <source>Reminders:</source>
        <translation>Rappels&#xa0;:</translation>
    </message>
    <message>
        <source>Preferred languages:</source>
        <translation>Langues préférées :</translation>
    </message>
    <message>
        <source>no change</source>
        <translation>aucun changement</translation>
    </message>
    <message>
        <source>%1 added, %2 changed, %3 removed</source>
        <translation>%1 ajoutés, %2 modifiés, %3 supprimés</translation>
    </message>
    <message>
        <source>The backup has no passwords and keys. Enter them afterwards with &quot;Edit Source...&quot; for: %1</source>
        <translation>La sauvegarde ne contient ni mots de passe ni clés. Saisissez-les ensuite avec «&#xa0;Modifier la source...&#xa0;» pour&#xa0;: %1</translation>
    </message>
    <message>
        <source>The backup has no playlist files. Choose them afterwards with &quot;Edit Source...&quot; for: %1</source>
        <translation>La sauvegarde ne contient pas les fichiers des listes de lecture. Choisissez-les ensuite avec «&#xa0;Modifier la source...&#xa0;» pour&#xa0;: %1</translation>
    </message>
    <message>
        <source>The backup has no passwords in addresses of guides. Enter them afterwards with &quot;Programme Guide...&quot; for: %1</source>
        <translation>La sauvegarde ne contient pas les mots de passe des adresses de guides. Saisissez-les ensuite avec «&#xa0;Guide des programmes...&#xa0;» pour&#xa0;: %1</translation>
    </message>
</context>
<context>
    <name>ScheduleDialog</name>
    <message>
        <source>Watch</source>
        <translation>Regarder</translation>
    </message>
    <message>
        <source>Watch from Start</source>
        <translation>Regarder depuis le début</translation>
    </message>
    <message>
        <source>Schedule of %1</source>
        <translation>Programmation de %1</translation>
    </message>
    <message>
        <source>Day</source>
        <translation>Jour</translation>
    </message>
    <message>
        <source>Programmes</source>
        <translation>Programmes</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Description</translation>
    </message>
    <message>
        <source>The guide&apos;s channel was guessed from the name: %1</source>
        <translation>La chaîne du guide a été devinée d&apos;après le nom&#xa0;: %1</translation>
    </message>
    <message>
        <source>Remove Reminder</source>
        <translation>Supprimer le rappel</translation>
    </message>
    <message>
        <source>Remind Me</source>
        <translation>Me le rappeler</translation>
    </message>
    <message>
        <source>Loading the schedule...</source>
        <translation>Chargement de la programmation...</translation>
    </message>
    <message>
        <source>The guide has no programmes of this channel.</source>
        <translation>Le guide ne contient aucun programme de cette chaîne.</translation>
    </message>
    <message>
        <source>The guide has no programmes of this day.</source>
        <translation>Le guide ne contient aucun programme de ce jour.</translation>
    </message>
</context>
<context>
    <name>ScheduleItem</name>
    <message>
        <source>On Now</source>
        <translation>En ce moment</translation>
    </message>
    <message>
        <source>In the Archive</source>
        <translation>Dans l&apos;archive</translation>
    </message>
    <message>
        <source>Reminder Set</source>
        <translation>Rappel défini</translation>
    </message>
</context>
<context>
    <name>SleepInhibitor</name>
    <message>
        <source>Playing</source>
        <translation>Lecture en cours</translation>
    </message>
</context>
<context>
    <name>SourceBar</name>
    <message>
        <source>More</source>
        <translation>Plus</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Source</translation>
    </message>
    <message>
        <source>Add Source...</source>
        <translation>Ajouter une source...</translation>
    </message>
    <message>
        <source>Edit Source...</source>
        <translation>Modifier la source...</translation>
    </message>
    <message>
        <source>Refresh Playlist</source>
        <translation>Actualiser la liste de lecture</translation>
    </message>
    <message>
        <source>Source:</source>
        <translation>Source&#xa0;:</translation>
    </message>
    <message>
        <source>Fetch the catalog of the source again</source>
        <translation>Récupérer à nouveau le catalogue de la source</translation>
    </message>
</context>
<context>
    <name>SourceDialog</name>
    <message>
        <source>Edit Source</source>
        <translation>Modifier la source</translation>
    </message>
    <message>
        <source>Add Source</source>
        <translation>Ajouter une source</translation>
    </message>
    <message>
        <source>M3U Playlist</source>
        <translation>Liste de lecture M3U</translation>
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
        <translation>Type de source</translation>
    </message>
    <message>
        <source>Delete Source</source>
        <translation>Supprimer la source</translation>
    </message>
    <message>
        <source>Source Type:</source>
        <translation>Type de source&#xa0;:</translation>
    </message>
    <message>
        <source>http://example.com/playlist.m3u or a local file path</source>
        <translation>http://example.com/playlist.m3u ou le chemin d&apos;un fichier local</translation>
    </message>
    <message>
        <source>Playlist URL/File</source>
        <translation>URL/fichier de la liste de lecture</translation>
    </message>
    <message>
        <source>Upload File...</source>
        <translation>Importer un fichier...</translation>
    </message>
    <message>
        <source>Name:</source>
        <translation>Nom&#xa0;:</translation>
    </message>
    <message>
        <source>Playlist URL/File:</source>
        <translation>URL/fichier de la liste :</translation>
    </message>
    <message>
        <source>http://example.com:8080</source>
        <translation>http://example.com:8080</translation>
    </message>
    <message>
        <source>Test Connection</source>
        <translation>Tester la connexion</translation>
    </message>
    <message>
        <source>Server URL:</source>
        <translation>URL du serveur&#xa0;:</translation>
    </message>
    <message>
        <source>Username:</source>
        <translation>Nom d&apos;utilisateur&#xa0;:</translation>
    </message>
    <message>
        <source>Password:</source>
        <translation>Mot de passe&#xa0;:</translation>
    </message>
    <message>
        <source>Live Stream Format:</source>
        <translation>Format des flux en direct&#xa0;:</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Mot de passe</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Afficher</translation>
    </message>
    <message>
        <source>Your Zevrino subscription key</source>
        <translation>Votre clé d&apos;abonnement Zevrino</translation>
    </message>
    <message>
        <source>Subscription Key:</source>
        <translation>Clé d&apos;abonnement&#xa0;:</translation>
    </message>
    <message>
        <source>Upload M3U Playlist</source>
        <translation>Importer une liste de lecture M3U</translation>
    </message>
    <message>
        <source>Playlists (*.m3u *.m3u8);;All Files (*)</source>
        <translation>Listes de lecture (*.m3u *.m3u8);;Tous les fichiers (*)</translation>
    </message>
    <message>
        <source>Testing...</source>
        <translation>Test en cours...</translation>
    </message>
    <message>
        <source>Connection OK</source>
        <translation>Connexion réussie</translation>
    </message>
    <message>
        <source>Failed: %1</source>
        <translation>Échec&#xa0;: %1</translation>
    </message>
    <message>
        <source>Delete source &quot;%1&quot;? This cannot be undone.</source>
        <translation>Supprimer la source «&#xa0;%1&#xa0;»&#xa0;? Cette action est irréversible.</translation>
    </message>
</context>
<context>
    <name>SourceOptionsDialog</name>
    <message>
        <source>Source Options</source>
        <translation>Options de la source</translation>
    </message>
    <message>
        <source>Source: %1</source>
        <translation>Source&#xa0;: %1</translation>
    </message>
    <message>
        <source>The usual one</source>
        <translation>Celui d’usage</translation>
    </message>
    <message>
        <source>The name under which the player asks this source for its catalog, its guide and its streams. Only some providers want a certain one. A playlist can name another one for a channel.</source>
        <translation>Le nom sous lequel le lecteur demande à cette source son catalogue, son guide et ses flux. Seuls certains fournisseurs en exigent un précis. Une liste de lecture peut en indiquer un autre pour une chaîne.</translation>
    </message>
    <message>
        <source>&amp;User agent:</source>
        <translation>&amp;User-agent&#xa0;:</translation>
    </message>
    <message>
        <source>A user agent has at most 2048 characters: letters from A to Z, digits, blanks and the other characters of a plain English keyboard.</source>
        <translation>Un user-agent a au plus 2048 caractères&#xa0;: des lettres de A à Z, des chiffres, des espaces et les autres caractères d’un simple clavier anglais.</translation>
    </message>
</context>
<context>
    <name>StreamInfoDialog</name>
    <message>
        <source>Stream Info</source>
        <translation>Informations sur le flux</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>Actualiser</translation>
    </message>
</context>
<context>
    <name>TabLibrary</name>
    <message>
        <source>Removed from Recently Watched</source>
        <translation>Retiré des vus récemment</translation>
    </message>
    <message>
        <source>Removed from Favorites</source>
        <translation>Retiré des favoris</translation>
    </message>
    <message>
        <source>Marked as Watched</source>
        <translation>Marqué comme vu</translation>
    </message>
    <message>
        <source>Marked as Unwatched</source>
        <translation>Marqué comme non vu</translation>
    </message>
    <message>
        <source>Category Hidden</source>
        <translation>Catégorie masquée</translation>
    </message>
</context>
<context>
    <name>TrackMenus</name>
    <message>
        <source>Disable</source>
        <translation>Désactiver</translation>
    </message>
    <message>
        <source>Load Subtitle File...</source>
        <translation>Charger un fichier de sous-titres...</translation>
    </message>
    <message>
        <source>No audio tracks</source>
        <translation>Aucune piste audio</translation>
    </message>
    <message>
        <source>Load Subtitle File</source>
        <translation>Charger un fichier de sous-titres</translation>
    </message>
    <message>
        <source>Subtitles (*.srt *.ass *.ssa *.sub *.vtt);;All Files (*)</source>
        <translation>Sous-titres (*.srt *.ass *.ssa *.sub *.vtt);;Tous les fichiers (*)</translation>
    </message>
</context>
<context>
    <name>UndoBar</name>
    <message>
        <source>Undo</source>
        <translation>Annuler</translation>
    </message>
</context>
<context>
    <name>VlcPlayer</name>
    <message>
        <source>The stream stopped advancing for %1 seconds.</source>
        <translation>Le flux n&apos;avance plus depuis %1 secondes.</translation>
    </message>
    <message>
        <source>Could not create media for URL: %1</source>
        <translation>Impossible de créer le média pour l&apos;URL&#xa0;: %1</translation>
    </message>
    <message>
        <source>Playback failed to start for: %1</source>
        <translation>La lecture n&apos;a pas pu démarrer&#xa0;: %1</translation>
    </message>
    <message>
        <source>libVLC encountered an error while streaming.</source>
        <translation>libVLC a rencontré une erreur pendant la lecture du flux.</translation>
    </message>
    <message>
        <source>The live stream stopped sending data.</source>
        <translation>Le flux en direct a cessé d&apos;envoyer des données.</translation>
    </message>
    <message>
        <source>Reached the end of the stream (this can also happen if a seek landed somewhere the stream couldn&apos;t resume from).</source>
        <translation>La fin du flux a été atteinte (cela peut aussi arriver après un saut vers un endroit d&apos;où le flux n&apos;a pas pu reprendre).</translation>
    </message>
    <message>
        <source>Disable</source>
        <translation>Désactiver</translation>
    </message>
    <message>
        <source>Track %1</source>
        <translation>Piste %1</translation>
    </message>
    <message>
        <source>Video codec: %1
Resolution: %2x%3
Frame rate: %4 fps

</source>
        <translation>Codec vidéo&#xa0;: %1
Résolution&#xa0;: %2x%3
Fréquence d&apos;images&#xa0;: %4 fps

</translation>
    </message>
    <message>
        <source>Audio codec: %1
Sample rate: %2 Hz
Channels: %3

</source>
        <translation>Codec audio&#xa0;: %1
Fréquence d&apos;échantillonnage&#xa0;: %2 Hz
Canaux&#xa0;: %3

</translation>
    </message>
    <message>
        <source>Input bitrate: %1 kbps
Demux bitrate: %2 kbps
Decoded video blocks: %3
Decoded audio blocks: %4
Displayed frames: %5   Lost frames: %6
</source>
        <translation>Débit d&apos;entrée&#xa0;: %1 kbps
Débit du démultiplexeur&#xa0;: %2 kbps
Blocs vidéo décodés&#xa0;: %3
Blocs audio décodés&#xa0;: %4
Images affichées&#xa0;: %5   Images perdues&#xa0;: %6
</translation>
    </message>
    <message>
        <source>No player.</source>
        <translation>Aucun lecteur.</translation>
    </message>
    <message>
        <source>No media loaded.</source>
        <translation>Aucun média chargé.</translation>
    </message>
    <message>
        <source>Audio tracks:
</source>
        <translation>Pistes audio&#xa0;:
</translation>
    </message>
    <message>
        <source>Subtitle tracks:
</source>
        <translation>Pistes de sous-titres&#xa0;:
</translation>
    </message>
    <message>
        <source>No track information available yet.</source>
        <translation>Aucune information sur les pistes pour le moment.</translation>
    </message>
</context>
<context>
    <name>XtreamClient</name>
    <message>
        <source>Could not reach server or invalid response</source>
        <translation>Serveur injoignable ou réponse non valide</translation>
    </message>
    <message>
        <source>Authentication failed - check server URL, username, and password</source>
        <translation>Échec de l&apos;authentification - vérifiez l&apos;URL du serveur, le nom d&apos;utilisateur et le mot de passe</translation>
    </message>
</context>
<context>
    <name>ZevrinoClient</name>
    <message>
        <source>Invalid response from server</source>
        <translation>Réponse non valide du serveur</translation>
    </message>
    <message>
        <source>Subscription could not be resolved</source>
        <translation>L&apos;abonnement n&apos;a pas pu être résolu</translation>
    </message>
    <message>
        <source>Server response was missing credentials</source>
        <translation>La réponse du serveur ne contenait pas les identifiants</translation>
    </message>
    <message>
        <source>Could not reach server: %1</source>
        <translation>Serveur injoignable&#xa0;: %1</translation>
    </message>
</context>
</TS>
