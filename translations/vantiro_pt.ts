<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pt" sourcelanguage="en">
<context>
    <name>AccountInformationDialog</name>
    <message>
        <source>Account Information</source>
        <translation>Informações da conta</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Fonte</translation>
    </message>
    <message>
        <source>Asking the server...</source>
        <translation>Consultando o servidor...</translation>
    </message>
    <message>
        <source>The server could not be reached, or its answer cannot be read.</source>
        <translation>Não foi possível acessar o servidor ou a resposta dele não pode ser lida.</translation>
    </message>
    <message>
        <source>The server does not accept this account, or tells nothing about it.</source>
        <translation>O servidor não aceita esta conta ou não informa nada sobre ela.</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Desconhecido</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>Expires</source>
        <translation>Expira</translation>
    </message>
    <message>
        <source>Never</source>
        <translation>Nunca</translation>
    </message>
    <message>
        <source>Trial</source>
        <translation>Teste</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Sim</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Não</translation>
    </message>
    <message>
        <source>Connections in use</source>
        <translation>Conexões em uso</translation>
    </message>
    <message>
        <source>Connections allowed</source>
        <translation>Conexões permitidas</translation>
    </message>
    <message>
        <source>Formats</source>
        <translation>Formatos</translation>
    </message>
    <message>
        <source>Time zone of the server</source>
        <translation>Fuso horário do servidor</translation>
    </message>
</context>
<context>
    <name>BrowseTab</name>
    <message>
        <source>Live TV</source>
        <translation>TV ao vivo</translation>
    </message>
    <message>
        <source>Search all channels...</source>
        <translation>Pesquisar todos os canais...</translation>
    </message>
    <message>
        <source>Channels</source>
        <translation>Canais</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>Canal</translation>
    </message>
    <message>
        <source>Movies</source>
        <translation>Filmes</translation>
    </message>
    <message>
        <source>Search all movies...</source>
        <translation>Pesquisar todos os filmes...</translation>
    </message>
    <message>
        <source>TV Shows</source>
        <translation>Séries</translation>
    </message>
    <message>
        <source>Search all shows...</source>
        <translation>Pesquisar todas as séries...</translation>
    </message>
    <message>
        <source>Shows</source>
        <translation>Séries</translation>
    </message>
    <message>
        <source>Select a category:</source>
        <translation>Selecione uma categoria:</translation>
    </message>
    <message>
        <source>Categories</source>
        <translation>Categorias</translation>
    </message>
    <message>
        <source>Search...</source>
        <translation>Pesquisar...</translation>
    </message>
    <message>
        <source>Sort by</source>
        <translation>Ordenar por</translation>
    </message>
    <message>
        <source>Name (A-Z)</source>
        <translation>Nome (A-Z)</translation>
    </message>
    <message>
        <source>Recently Added</source>
        <translation>Adicionados recentemente</translation>
    </message>
    <message>
        <source>Rating</source>
        <translation>Avaliação</translation>
    </message>
    <message>
        <source>&lt; Back to Categories</source>
        <translation>&lt; Voltar às categorias</translation>
    </message>
    <message>
        <source>All Categories</source>
        <translation>Todas as categorias</translation>
    </message>
    <message>
        <source>Search: &quot;%1&quot;</source>
        <translation>Pesquisa: &quot;%1&quot;</translation>
    </message>
    <message>
        <source>Guide</source>
        <translation>Guia</translation>
    </message>
    <message>
        <source>Show the programme guide</source>
        <translation>Mostrar o guia de programação</translation>
    </message>
    <message>
        <source>Remove from Favorites</source>
        <translation>Remover dos favoritos</translation>
    </message>
    <message>
        <source>Add to Favorites</source>
        <translation>Adicionar aos favoritos</translation>
    </message>
    <message>
        <source>Remove from List</source>
        <translation>Remover da lista</translation>
    </message>
    <message>
        <source>Mark as Watched</source>
        <translation>Marcar como assistido</translation>
    </message>
    <message>
        <source>Mark as Unwatched</source>
        <translation>Marcar como não assistido</translation>
    </message>
</context>
<context>
    <name>CatchUpPlayer</name>
    <message>
        <source>The archive does not tell how to play this programme.</source>
        <translation>O arquivo não informa como reproduzir este programa.</translation>
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
        <translation>Favoritos</translation>
    </message>
    <message>
        <source>Continue Watching</source>
        <translation>Continuar assistindo</translation>
    </message>
    <message>
        <source>Recently Watched</source>
        <translation>Assistidos recentemente</translation>
    </message>
    <message>
        <source>All Categories</source>
        <translation>Todas as categorias</translation>
    </message>
    <message>
        <source>Hidden</source>
        <translation>Ocultas</translation>
    </message>
    <message>
        <source>Unhide Category</source>
        <translation>Reexibir categoria</translation>
    </message>
    <message>
        <source>Hide Category</source>
        <translation>Ocultar categoria</translation>
    </message>
    <message>
        <source>Show Hidden Categories</source>
        <translation>Mostrar categorias ocultas</translation>
    </message>
</context>
<context>
    <name>ClearHistoryDialog</name>
    <message>
        <source>Recently watched</source>
        <translation>Assistidos recentemente</translation>
    </message>
    <message>
        <source>Positions and watched marks</source>
        <translation>Posições e marcas de assistido</translation>
    </message>
    <message>
        <source>Clear History</source>
        <translation>Limpar histórico</translation>
    </message>
    <message>
        <source>What goes, of all sources? Favorites and hidden categories stay.</source>
        <translation>O que deve ser apagado, em todas as fontes? Os favoritos e as categorias ocultas permanecem.</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Limpar</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>Subscription service: %1</source>
        <translation>Serviço de assinatura: %1</translation>
    </message>
    <message>
        <source>A player for internet television.</source>
        <translation>Um reprodutor para televisão pela Internet.</translation>
    </message>
    <message>
        <source>Displays version information.</source>
        <translation>Exibe informações da versão.</translation>
    </message>
    <message>
        <source>Playlists, films and streams to open: files or URLs.</source>
        <translation>Listas de reprodução, filmes e transmissões a abrir: arquivos ou URLs.</translation>
    </message>
</context>
<context>
    <name>EntryMarks</name>
    <message>
        <source>Favorite</source>
        <translation>Favorito</translation>
    </message>
    <message>
        <source>Watched</source>
        <translation>Assistido</translation>
    </message>
    <message>
        <source>%1 % watched</source>
        <translation>%1 % assistido</translation>
    </message>
</context>
<context>
    <name>EntryTable</name>
    <message>
        <source>Move Up</source>
        <translation>Mover para cima</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>Mover para baixo</translation>
    </message>
</context>
<context>
    <name>EpisodePage</name>
    <message>
        <source>&lt; Back to Shows</source>
        <translation>&lt; Voltar às séries</translation>
    </message>
    <message>
        <source>Episodes</source>
        <translation>Episódios</translation>
    </message>
    <message>
        <source>E%1 - %2</source>
        <translation>E%1 - %2</translation>
    </message>
    <message>
        <source>Season %1</source>
        <translation>Temporada %1</translation>
    </message>
    <message>
        <source>Mark as Watched</source>
        <translation>Marcar como assistido</translation>
    </message>
    <message>
        <source>Mark as Unwatched</source>
        <translation>Marcar como não assistido</translation>
    </message>
</context>
<context>
    <name>GuideAddressList</name>
    <message>
        <source>Addresses of guides, the preferred one first</source>
        <translation>Endereços de guias, o preferido primeiro</translation>
    </message>
    <message>
        <source>Add Address...</source>
        <translation>Adicionar endereço...</translation>
    </message>
    <message>
        <source>Add File...</source>
        <translation>Adicionar arquivo...</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Remover</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>Mover para cima</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>Mover para baixo</translation>
    </message>
    <message>
        <source>Add Account&apos;s Guide</source>
        <translation>Adicionar o guia da conta</translation>
    </message>
    <message>
        <source>Add Playlist&apos;s Guide</source>
        <translation>Adicionar o guia da lista de reprodução</translation>
    </message>
    <message>
        <source>Add File</source>
        <translation>Adicionar arquivo</translation>
    </message>
    <message>
        <source>Guides (*.xml *.xmltv *.gz);;All Files (*)</source>
        <translation>Guias (*.xml *.xmltv *.gz);;Todos os arquivos (*)</translation>
    </message>
</context>
<context>
    <name>GuideChannelDialog</name>
    <message>
        <source>Automatic: find it by its id and name</source>
        <translation>Automático: encontrar pelo identificador e pelo nome</translation>
    </message>
    <message>
        <source>No guide for this channel</source>
        <translation>Nenhum guia para este canal</translation>
    </message>
    <message>
        <source>This channel of the guide:</source>
        <translation>Este canal do guia:</translation>
    </message>
    <message>
        <source>Guide Channel</source>
        <translation>Canal do guia</translation>
    </message>
    <message>
        <source>Channel: %1</source>
        <translation>Canal: %1</translation>
    </message>
    <message>
        <source>Confirm Suggestion</source>
        <translation>Confirmar sugestão</translation>
    </message>
    <message>
        <source>Found by the id that the source names: %1</source>
        <translation>Encontrado pelo identificador que a fonte informa: %1</translation>
    </message>
    <message>
        <source>Found by the name that the source gives for the guide: %1</source>
        <translation>Encontrado pelo nome que a fonte informa para o guia: %1</translation>
    </message>
    <message>
        <source>Found by the channel&apos;s name: %1</source>
        <translation>Encontrado pelo nome do canal: %1</translation>
    </message>
    <message>
        <source>Suggested, since the names are alike: %1</source>
        <translation>Sugerido porque os nomes são parecidos: %1</translation>
    </message>
    <message>
        <source>Search the guide&apos;s channels</source>
        <translation>Pesquisar os canais do guia</translation>
    </message>
    <message>
        <source>Search the guide&apos;s channels...</source>
        <translation>Pesquisar os canais do guia...</translation>
    </message>
    <message>
        <source>Channels of the guide</source>
        <translation>Canais do guia</translation>
    </message>
    <message>
        <source>No channel of the guide contains this text.</source>
        <translation>Nenhum canal do guia contém este texto.</translation>
    </message>
    <message>
        <source>Only the first %1 are shown. Type more of the name.</source>
        <translation>Somente os primeiros %1 são mostrados. Digite mais do nome.</translation>
    </message>
</context>
<context>
    <name>GuideDialog</name>
    <message>
        <source>Show a programme guide for this source</source>
        <translation>Mostrar um guia de programação para esta fonte</translation>
    </message>
    <message>
        <source>Refresh every 12 hours</source>
        <translation>Atualizar a cada 12 horas</translation>
    </message>
    <message>
        <source>Update Now</source>
        <translation>Atualizar agora</translation>
    </message>
    <message>
        <source>Cancel Update</source>
        <translation>Cancelar atualização</translation>
    </message>
    <message>
        <source>Programme Guide</source>
        <translation>Guia de programação</translation>
    </message>
    <message>
        <source>Source: %1</source>
        <translation>Fonte: %1</translation>
    </message>
    <message>
        <source> hours</source>
        <translation> horas</translation>
    </message>
    <message>
        <source>Where the guide comes from, in order of preference:</source>
        <translation>De onde vem o guia, em ordem de preferência:</translation>
    </message>
    <message>
        <source>Shift all times by:</source>
        <translation>Deslocar todos os horários em:</translation>
    </message>
    <message>
        <source>Progress of the update</source>
        <translation>Progresso da atualização</translation>
    </message>
</context>
<context>
    <name>GuideGrid</name>
    <message>
        <source>Programme guide</source>
        <translation>Guia de programação</translation>
    </message>
    <message>
        <source>in the archive</source>
        <translation>no arquivo</translation>
    </message>
    <message>
        <source>No information</source>
        <translation>Sem informações</translation>
    </message>
</context>
<context>
    <name>GuideResult</name>
    <message>
        <source>The account&apos;s own guide</source>
        <translation>O guia próprio da conta</translation>
    </message>
    <message>
        <source>The guide of the last update stays.</source>
        <translation>O guia da última atualização permanece.</translation>
    </message>
    <message>
        <source>The update was cancelled. The guide of the last update stays.</source>
        <translation>A atualização foi cancelada. O guia da última atualização permanece.</translation>
    </message>
    <message>
        <source>Last update: %1</source>
        <translation>Última atualização: %1</translation>
    </message>
    <message>
        <source>Programmes: %1</source>
        <translation>Programas: %1</translation>
    </message>
    <message>
        <source>Channels with a guide: %1 of %2</source>
        <translation>Canais com guia: %1 de %2</translation>
    </message>
    <message>
        <source>Of these, only suggested: %1. Confirm or change them with &quot;Guide Channel...&quot; in a channel&apos;s menu.</source>
        <translation>Destes, apenas sugeridos: %1. Confirme-os ou altere-os com &quot;Canal do guia...&quot; no menu de um canal.</translation>
    </message>
    <message>
        <source>The last programme begins: %1</source>
        <translation>O último programa começa: %1</translation>
    </message>
    <message>
        <source>%1 cannot be reached: %2</source>
        <translation>Não foi possível acessar %1: %2</translation>
    </message>
    <message>
        <source>%1 cannot be opened: %2</source>
        <translation>Não foi possível abrir %1: %2</translation>
    </message>
    <message>
        <source>%1 is no guide. It may be a page or an error message.</source>
        <translation>%1 não é um guia. Pode ser uma página ou uma mensagem de erro.</translation>
    </message>
    <message>
        <source>%1 is packed in a form other than gzip, which cannot be read.</source>
        <translation>%1 está compactado em um formato diferente de gzip, que não pode ser lido.</translation>
    </message>
    <message>
        <source>%1 is damaged and cannot be unpacked.</source>
        <translation>%1 está danificado e não pode ser descompactado.</translation>
    </message>
    <message>
        <source>%1 ends early. It was not taken.</source>
        <translation>%1 termina antes do esperado e não foi usado.</translation>
    </message>
    <message>
        <source>%1 is too large.</source>
        <translation>%1 é grande demais.</translation>
    </message>
    <message>
        <source>%1 has no programmes of the channels of this source.</source>
        <translation>%1 não contém programas dos canais desta fonte.</translation>
    </message>
    <message>
        <source>%1 cannot be stored: %2</source>
        <translation>Não foi possível armazenar %1: %2</translation>
    </message>
    <message>
        <source>What the source tells of its channels cannot be read: %1</source>
        <translation>Não foi possível ler o que a fonte informa sobre seus canais: %1</translation>
    </message>
    <message numerus="yes">
        <source>%1: %Ln programmes. The time zone of some is not known; they may be shown at the wrong hour.</source>
        <translation>
            <numerusform>%1: %Ln programa. O fuso horário de alguns não é conhecido; eles podem aparecer na hora errada.</numerusform>
            <numerusform>%1: %Ln programas. O fuso horário de alguns não é conhecido; eles podem aparecer na hora errada.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1: %Ln programmes.</source>
        <translation>
            <numerusform>%1: %Ln programa.</numerusform>
            <numerusform>%1: %Ln programas.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>GuideSearchList</name>
    <message>
        <source>Programmes found</source>
        <translation>Programas encontrados</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Hora</translation>
    </message>
    <message>
        <source>Programme</source>
        <translation>Programa</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>Canal</translation>
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
        <translation>Ontem</translation>
    </message>
    <message>
        <source>Today</source>
        <translation>Hoje</translation>
    </message>
    <message>
        <source>Tomorrow</source>
        <translation>Amanhã</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <translation>%1 %2</translation>
    </message>
    <message>
        <source>Yesterday %1</source>
        <translation>Ontem %1</translation>
    </message>
    <message>
        <source>Today %1</source>
        <translation>Hoje %1</translation>
    </message>
    <message>
        <source>Tomorrow %1</source>
        <translation>Amanhã %1</translation>
    </message>
</context>
<context>
    <name>GuideView</name>
    <message>
        <source>Now</source>
        <translation>Agora</translation>
    </message>
    <message>
        <source>Show what runs now</source>
        <translation>Mostrar o que está passando agora</translation>
    </message>
    <message>
        <source>Previous day</source>
        <translation>Dia anterior</translation>
    </message>
    <message>
        <source>Day</source>
        <translation>Dia</translation>
    </message>
    <message>
        <source>Next day</source>
        <translation>Próximo dia</translation>
    </message>
    <message>
        <source>Search programmes...</source>
        <translation>Pesquisar programas...</translation>
    </message>
    <message>
        <source>No programme found.</source>
        <translation>Nenhum programa encontrado.</translation>
    </message>
    <message>
        <source>%1  %2 (in the archive)</source>
        <translation>%1  %2 (no arquivo)</translation>
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
        <translation>Não foi possível armazenar os favoritos e as posições: %1</translation>
    </message>
    <message>
        <source>Favorites and positions were stored by a newer version of this program. They stay as they are, and changes are not stored.</source>
        <translation>Os favoritos e as posições foram armazenados por uma versão mais recente deste programa. Eles permanecem como estão e as alterações não são armazenadas.</translation>
    </message>
    <message>
        <source>The file with your favorites and positions was damaged. It was kept as &quot;%1&quot;, and a new one was begun.</source>
        <translation>O arquivo com seus favoritos e posições estava danificado. Ele foi mantido como &quot;%1&quot; e um novo foi criado.</translation>
    </message>
</context>
<context>
    <name>LibraryBackup</name>
    <message>
        <source>This file is not a backup of Vantiro Player, or it is damaged.</source>
        <translation>Este arquivo não é um backup do Vantiro Player ou está danificado.</translation>
    </message>
    <message>
        <source>This backup was made by a newer version of Vantiro Player.</source>
        <translation>Este backup foi criado por uma versão mais recente do Vantiro Player.</translation>
    </message>
    <message>
        <source>This backup is damaged: its part &quot;%1&quot; cannot be read.</source>
        <translation>Este backup está danificado: a parte &quot;%1&quot; não pode ser lida.</translation>
    </message>
    <message>
        <source>The backup cannot be written: %1</source>
        <translation>Não foi possível gravar o backup: %1</translation>
    </message>
    <message>
        <source>The backup cannot be read: %1</source>
        <translation>Não foi possível ler o backup: %1</translation>
    </message>
</context>
<context>
    <name>LoadingOverlay</name>
    <message>
        <source>Loading...</source>
        <translation>Carregando...</translation>
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
        <translation>Informe uma chave de assinatura válida.</translation>
    </message>
    <message>
        <source>Please provide a valid URL/path.</source>
        <translation>Informe uma URL ou um caminho válido.</translation>
    </message>
    <message>
        <source>%1 until %2</source>
        <translation>%1 até %2</translation>
    </message>
    <message>
        <source>Next: %1 %2</source>
        <translation>A seguir: %1 %2</translation>
    </message>
    <message>
        <source>Watch from Start</source>
        <translation>Assistir desde o início</translation>
    </message>
    <message>
        <source>Schedule</source>
        <translation>Programação</translation>
    </message>
    <message>
        <source>Guide Channel...</source>
        <translation>Canal do guia...</translation>
    </message>
    <message>
        <source>Favorites and Positions</source>
        <translation>Favoritos e posições</translation>
    </message>
    <message>
        <source>Removed from Favorites</source>
        <translation>Removido dos favoritos</translation>
    </message>
    <message>
        <source>Added to Favorites</source>
        <translation>Adicionado aos favoritos</translation>
    </message>
    <message>
        <source>Marked as Watched</source>
        <translation>Marcado como assistido</translation>
    </message>
    <message>
        <source>Marked as Unwatched</source>
        <translation>Marcado como não assistido</translation>
    </message>
    <message>
        <source>History cleared</source>
        <translation>Histórico limpo</translation>
    </message>
    <message>
        <source>Back Up</source>
        <translation>Backup</translation>
    </message>
    <message>
        <source>The backup holds your sources, favorites, history, positions, hidden categories, the settings of programme guides and reminders.</source>
        <translation>O backup contém suas fontes, favoritos, histórico, posições, categorias ocultas, as configurações dos guias de programação e os lembretes.</translation>
    </message>
    <message>
        <source>The backup holds your sources, favorites, history, positions and hidden categories.</source>
        <translation>O backup contém suas fontes, favoritos, histórico, posições e categorias ocultas.</translation>
    </message>
    <message>
        <source>Whoever has the file can read the passwords and keys in it.</source>
        <translation>Quem tiver o arquivo poderá ler as senhas e chaves contidas nele.</translation>
    </message>
    <message>
        <source>Include passwords and keys</source>
        <translation>Incluir senhas e chaves</translation>
    </message>
    <message>
        <source>Backups (*.json);;All Files (*)</source>
        <translation>Backups (*.json);;Todos os arquivos (*)</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Restaurar</translation>
    </message>
    <message>
        <source>The backup could not be restored. Everything is as it was.</source>
        <translation>Não foi possível restaurar o backup. Tudo está como antes.</translation>
    </message>
    <message>
        <source>Vantiro Player %1
A player for internet television.
Copyright 2026 Vantiro. All rights reserved.

With Qt %2 (LGPL 3), libVLC %3 (LGPL 2.1 or later) and RapidJSON (MIT). The texts of these licences come with the package.</source>
        <translation>Vantiro Player %1
Um reprodutor para televisão pela Internet.
Copyright 2026 Vantiro. Todos os direitos reservados.

Com Qt %2 (LGPL 3), libVLC %3 (LGPL 2.1 ou posterior) e RapidJSON (MIT). Os textos destas licenças acompanham o pacote.</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Sobre</translation>
    </message>
    <message>
        <source>Playback Error</source>
        <translation>Erro de reprodução</translation>
    </message>
    <message>
        <source>Zevrino</source>
        <translation>Zevrino</translation>
    </message>
    <message>
        <source>Failed to load subscription: %1</source>
        <translation>Não foi possível carregar a assinatura: %1</translation>
    </message>
    <message>
        <source>Load Playlist</source>
        <translation>Carregar lista de reprodução</translation>
    </message>
    <message>
        <source>Failed to open file: %1</source>
        <translation>Não foi possível abrir o arquivo: %1</translation>
    </message>
    <message>
        <source>Failed to download playlist: %1</source>
        <translation>Não foi possível baixar a lista de reprodução: %1</translation>
    </message>
    <message>
        <source>No channel %1</source>
        <translation>Nenhum canal %1</translation>
    </message>
    <message>
        <source>Leave fullscreen first</source>
        <translation>Saia primeiro da tela cheia</translation>
    </message>
    <message>
        <source>Shift+P or Escape leaves the small window</source>
        <translation>Shift+P ou Esc sai da janela pequena</translation>
    </message>
    <message>
        <source>It is not a film or a stream that can be played.</source>
        <translation>Não é um filme nem uma transmissão que possa ser reproduzida.</translation>
    </message>
    <message>
        <source>Open File</source>
        <translation>Abrir arquivo</translation>
    </message>
    <message>
        <source>Videos and Playlists (%1);;All Files (*)</source>
        <translation>Vídeos e listas de reprodução (%1);;Todos os arquivos (*)</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Abrir</translation>
    </message>
    <message>
        <source>This could not be opened:</source>
        <translation>Não foi possível abrir:</translation>
    </message>
</context>
<context>
    <name>MoreMenu</name>
    <message>
        <source>Clear History...</source>
        <translation>Limpar histórico...</translation>
    </message>
    <message>
        <source>More</source>
        <translation>Mais</translation>
    </message>
    <message>
        <source>Back Up...</source>
        <translation>Backup...</translation>
    </message>
    <message>
        <source>Restore...</source>
        <translation>Restaurar...</translation>
    </message>
    <message>
        <source>Programme Guide...</source>
        <translation>Guia de programação...</translation>
    </message>
    <message>
        <source>Account Information...</source>
        <translation>Informações da conta...</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Sobre</translation>
    </message>
    <message>
        <source>Open File...</source>
        <translation>Abrir arquivo...</translation>
    </message>
    <message>
        <source>Open Location...</source>
        <translation>Abrir endereço...</translation>
    </message>
    <message>
        <source>Source Options...</source>
        <translation>Opções da fonte...</translation>
    </message>
</context>
<context>
    <name>OnNow</name>
    <message>
        <source>Now</source>
        <translation>Agora</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>A seguir</translation>
    </message>
    <message>
        <source>This guide channel is a suggestion.</source>
        <translation>Este canal do guia é uma sugestão.</translation>
    </message>
</context>
<context>
    <name>OpenLocationDialog</name>
    <message>
        <source>Open Location</source>
        <translation>Abrir endereço</translation>
    </message>
    <message>
        <source>http://example.com/stream.ts or a local file path</source>
        <translation>http://example.com/stream.ts ou o caminho de um arquivo local</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Abrir</translation>
    </message>
    <message>
        <source>Address:</source>
        <translation>Endereço:</translation>
    </message>
</context>
<context>
    <name>OpenTarget</name>
    <message>
        <source>The file does not exist.</source>
        <translation>O arquivo não existe.</translation>
    </message>
    <message>
        <source>It is a folder.</source>
        <translation>É uma pasta.</translation>
    </message>
    <message>
        <source>Addresses that begin with &quot;%1:&quot; are not supported.</source>
        <translation>Endereços que começam com &quot;%1:&quot; não são compatíveis.</translation>
    </message>
    <message>
        <source>The address names no server.</source>
        <translation>O endereço não indica nenhum servidor.</translation>
    </message>
</context>
<context>
    <name>PlaybackErrorBox</name>
    <message>
        <source>Playback Error</source>
        <translation>Erro de reprodução</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Tentar novamente</translation>
    </message>
</context>
<context>
    <name>PlaybackSession</name>
    <message>
        <source>Playback stopped: %1</source>
        <translation>Reprodução interrompida: %1</translation>
    </message>
    <message>
        <source>The archive sent nothing that plays.</source>
        <translation>O arquivo não enviou nada que possa ser reproduzido.</translation>
    </message>
    <message>
        <source>The archive stopped sending data.</source>
        <translation>O arquivo parou de enviar dados.</translation>
    </message>
</context>
<context>
    <name>PlayerCommands</name>
    <message>
        <source>Picture saved: %1</source>
        <translation>Imagem salva: %1</translation>
    </message>
    <message>
        <source>The picture could not be saved in %1.</source>
        <translation>Não foi possível salvar a imagem em %1.</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Próximo</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>Anterior</translation>
    </message>
    <message>
        <source>Last Channel</source>
        <translation>Último canal</translation>
    </message>
    <message>
        <source>Slower</source>
        <translation>Mais lento</translation>
    </message>
    <message>
        <source>Faster</source>
        <translation>Mais rápido</translation>
    </message>
    <message>
        <source>Normal Speed</source>
        <translation>Velocidade normal</translation>
    </message>
    <message>
        <source>Sound Earlier</source>
        <translation>Adiantar o som</translation>
    </message>
    <message>
        <source>Sound Later</source>
        <translation>Atrasar o som</translation>
    </message>
    <message>
        <source>Subtitles Earlier</source>
        <translation>Adiantar as legendas</translation>
    </message>
    <message>
        <source>Subtitles Later</source>
        <translation>Atrasar as legendas</translation>
    </message>
    <message>
        <source>Next Aspect Ratio</source>
        <translation>Próxima proporção da tela</translation>
    </message>
    <message>
        <source>Next Crop</source>
        <translation>Próximo corte</translation>
    </message>
    <message>
        <source>Next Zoom</source>
        <translation>Próximo zoom</translation>
    </message>
    <message>
        <source>Deinterlace</source>
        <translation>Desentrelaçar</translation>
    </message>
    <message>
        <source>Next Audio Track</source>
        <translation>Próxima faixa de áudio</translation>
    </message>
    <message>
        <source>Next Subtitle Track</source>
        <translation>Próxima faixa de legendas</translation>
    </message>
    <message>
        <source>Save Picture</source>
        <translation>Salvar imagem</translation>
    </message>
    <message>
        <source>Always on Top</source>
        <translation>Sempre visível</translation>
    </message>
    <message>
        <source>Small Window</source>
        <translation>Janela pequena</translation>
    </message>
    <message>
        <source>Nothing playing</source>
        <translation>Nada em reprodução</translation>
    </message>
    <message>
        <source>Channel %1</source>
        <translation>Canal %1</translation>
    </message>
    <message>
        <source>A live channel has no other speed</source>
        <translation>Um canal ao vivo não tem outra velocidade</translation>
    </message>
    <message>
        <source>Speed: %1x</source>
        <translation>Velocidade: %1x</translation>
    </message>
    <message>
        <source>Audio delay: %1 ms</source>
        <translation>Atraso do áudio: %1 ms</translation>
    </message>
    <message>
        <source>Subtitle delay: %1 ms</source>
        <translation>Atraso das legendas: %1 ms</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>Padrão</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>Fit to Window</source>
        <translation>Ajustar à janela</translation>
    </message>
    <message>
        <source>Aspect ratio: %1</source>
        <translation>Proporção da tela: %1</translation>
    </message>
    <message>
        <source>Crop: %1</source>
        <translation>Corte: %1</translation>
    </message>
    <message>
        <source>Zoom: %1</source>
        <translation>Zoom: %1</translation>
    </message>
    <message>
        <source>Deinterlacing: on</source>
        <translation>Desentrelaçamento: ativado</translation>
    </message>
    <message>
        <source>Deinterlacing: off</source>
        <translation>Desentrelaçamento: desativado</translation>
    </message>
    <message>
        <source>No audio tracks</source>
        <translation>Nenhuma faixa de áudio</translation>
    </message>
    <message>
        <source>Audio track: %1</source>
        <translation>Faixa de áudio: %1</translation>
    </message>
    <message>
        <source>No subtitles</source>
        <translation>Sem legendas</translation>
    </message>
    <message>
        <source>Subtitles: %1</source>
        <translation>Legendas: %1</translation>
    </message>
    <message>
        <source>Subtitles: off</source>
        <translation>Legendas: desativadas</translation>
    </message>
    <message>
        <source>Always on top: on</source>
        <translation>Sempre visível: ativado</translation>
    </message>
    <message>
        <source>Always on top: off</source>
        <translation>Sempre visível: desativado</translation>
    </message>
</context>
<context>
    <name>PlayerMenu</name>
    <message>
        <source>Aspect Ratio</source>
        <translation>Proporção da tela</translation>
    </message>
    <message>
        <source>Crop</source>
        <translation>Corte</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>Zoom</translation>
    </message>
    <message>
        <source>Pause or Play</source>
        <translation>Pausar ou reproduzir</translation>
    </message>
    <message>
        <source>Fullscreen</source>
        <translation>Tela cheia</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Velocidade</translation>
    </message>
    <message>
        <source>Delays</source>
        <translation>Atrasos</translation>
    </message>
</context>
<context>
    <name>PlayerPanel</name>
    <message>
        <source>Nothing playing</source>
        <translation>Nada em reprodução</translation>
    </message>
    <message>
        <source>Player</source>
        <translation>Reprodutor</translation>
    </message>
    <message>
        <source>Video</source>
        <translation>Vídeo</translation>
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
        <translation>Posição</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pausar</translation>
    </message>
    <message>
        <source>Next Episode</source>
        <translation>Próximo episódio</translation>
    </message>
    <message>
        <source>Fullscreen</source>
        <translation>Tela cheia</translation>
    </message>
    <message>
        <source>Info</source>
        <translation>Informações</translation>
    </message>
    <message>
        <source>Audio</source>
        <translation>Áudio</translation>
    </message>
    <message>
        <source>Subtitles</source>
        <translation>Legendas</translation>
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
        <translation>Reproduzir</translation>
    </message>
    <message>
        <source>Playing: %1</source>
        <translation>Reproduzindo: %1</translation>
    </message>
    <message>
        <source>Reconnecting to %1... (attempt %2)</source>
        <translation>Reconectando a %1... (tentativa %2)</translation>
    </message>
    <message>
        <source>%1 / %2</source>
        <translation>%1 / %2</translation>
    </message>
    <message>
        <source>Continue at %1</source>
        <translation>Continuar em %1</translation>
    </message>
</context>
<context>
    <name>PlaylistCopy</name>
    <message>
        <source>The playlist &quot;%1&quot; could not be copied: %2</source>
        <translation>Não foi possível copiar a lista de reprodução &quot;%1&quot;: %2</translation>
    </message>
</context>
<context>
    <name>QLineEdit</name>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Desfazer</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Refazer</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>Recor&amp;tar</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Copiar</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>Co&amp;lar</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Excluir</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Selecionar tudo</translation>
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
        <translation>Salvar</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Abrir</translation>
    </message>
    <message>
        <source>&amp;Yes</source>
        <translation>&amp;Sim</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>&amp;Não</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Tentar novamente</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fechar</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Descartar</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Aplicar</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Redefinir</translation>
    </message>
</context>
<context>
    <name>QWidgetTextControl</name>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Desfazer</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Refazer</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>Recor&amp;tar</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Copiar</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>Co&amp;lar</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Excluir</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Selecionar tudo</translation>
    </message>
</context>
<context>
    <name>ReminderKeeper</name>
    <message>
        <source>%1 begins on %2.</source>
        <translation>%1 começa em %2.</translation>
    </message>
    <message>
        <source>%1 began at %2 on %3.</source>
        <translation>%1 começou às %2 em %3.</translation>
    </message>
    <message>
        <source>Reminder</source>
        <translation>Lembrete</translation>
    </message>
    <message>
        <source>Watch</source>
        <translation>Assistir</translation>
    </message>
</context>
<context>
    <name>RestoreDialog</name>
    <message>
        <source>Replace: only what the backup holds stays</source>
        <translation>Substituir: permanece apenas o que o backup contém</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Restaurar</translation>
    </message>
    <message>
        <source>Merge: add what is missing</source>
        <translation>Mesclar: adicionar o que falta</translation>
    </message>
    <message>
        <source>Sources:</source>
        <translation>Fontes:</translation>
    </message>
    <message>
        <source>Favorites:</source>
        <translation>Favoritos:</translation>
    </message>
    <message>
        <source>Recently watched:</source>
        <translation>Assistidos recentemente:</translation>
    </message>
    <message>
        <source>Positions and watched marks:</source>
        <translation>Posições e marcas de assistido:</translation>
    </message>
    <message>
        <source>Hidden categories:</source>
        <translation>Categorias ocultas:</translation>
    </message>
    <message>
        <source>Settings of programme guides:</source>
        <translation>Configurações dos guias de programação:</translation>
    </message>
    <message>
        <source>Guide channels that were set by hand:</source>
        <translation>Canais do guia definidos manualmente:</translation>
    </message>
    <message>
        <source>Reminders:</source>
        <translation>Lembretes:</translation>
    </message>
    <message>
        <source>Preferred languages:</source>
        <translation>Idiomas preferidos:</translation>
    </message>
    <message>
        <source>no change</source>
        <translation>sem alterações</translation>
    </message>
    <message>
        <source>%1 added, %2 changed, %3 removed</source>
        <translation>%1 adicionados, %2 alterados, %3 removidos</translation>
    </message>
    <message>
        <source>The backup has no passwords and keys. Enter them afterwards with &quot;Edit Source...&quot; for: %1</source>
        <translation>O backup não contém senhas nem chaves. Informe-as depois com &quot;Editar fonte...&quot; para: %1</translation>
    </message>
    <message>
        <source>The backup has no playlist files. Choose them afterwards with &quot;Edit Source...&quot; for: %1</source>
        <translation>O backup não contém arquivos de listas de reprodução. Escolha-os depois com &quot;Editar fonte...&quot; para: %1</translation>
    </message>
    <message>
        <source>The backup has no passwords in addresses of guides. Enter them afterwards with &quot;Programme Guide...&quot; for: %1</source>
        <translation>O backup não contém senhas nos endereços de guias. Informe-as depois com &quot;Guia de programação...&quot; para: %1</translation>
    </message>
</context>
<context>
    <name>ScheduleDialog</name>
    <message>
        <source>Watch</source>
        <translation>Assistir</translation>
    </message>
    <message>
        <source>Watch from Start</source>
        <translation>Assistir desde o início</translation>
    </message>
    <message>
        <source>Schedule of %1</source>
        <translation>Programação de %1</translation>
    </message>
    <message>
        <source>Day</source>
        <translation>Dia</translation>
    </message>
    <message>
        <source>Programmes</source>
        <translation>Programas</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Descrição</translation>
    </message>
    <message>
        <source>The guide&apos;s channel was guessed from the name: %1</source>
        <translation>O canal do guia foi deduzido pelo nome: %1</translation>
    </message>
    <message>
        <source>Remove Reminder</source>
        <translation>Remover lembrete</translation>
    </message>
    <message>
        <source>Remind Me</source>
        <translation>Lembrar-me</translation>
    </message>
    <message>
        <source>Loading the schedule...</source>
        <translation>Carregando a programação...</translation>
    </message>
    <message>
        <source>The guide has no programmes of this channel.</source>
        <translation>O guia não contém programas deste canal.</translation>
    </message>
    <message>
        <source>The guide has no programmes of this day.</source>
        <translation>O guia não contém programas deste dia.</translation>
    </message>
</context>
<context>
    <name>ScheduleItem</name>
    <message>
        <source>On Now</source>
        <translation>No ar</translation>
    </message>
    <message>
        <source>In the Archive</source>
        <translation>No arquivo</translation>
    </message>
    <message>
        <source>Reminder Set</source>
        <translation>Lembrete definido</translation>
    </message>
</context>
<context>
    <name>SleepInhibitor</name>
    <message>
        <source>Playing</source>
        <translation>Em reprodução</translation>
    </message>
</context>
<context>
    <name>SourceBar</name>
    <message>
        <source>More</source>
        <translation>Mais</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Fonte</translation>
    </message>
    <message>
        <source>Add Source...</source>
        <translation>Adicionar fonte...</translation>
    </message>
    <message>
        <source>Edit Source...</source>
        <translation>Editar fonte...</translation>
    </message>
    <message>
        <source>Refresh Playlist</source>
        <translation>Atualizar lista de reprodução</translation>
    </message>
    <message>
        <source>Source:</source>
        <translation>Fonte:</translation>
    </message>
    <message>
        <source>Fetch the catalog of the source again</source>
        <translation>Buscar novamente o catálogo da fonte</translation>
    </message>
</context>
<context>
    <name>SourceDialog</name>
    <message>
        <source>Edit Source</source>
        <translation>Editar fonte</translation>
    </message>
    <message>
        <source>Add Source</source>
        <translation>Adicionar fonte</translation>
    </message>
    <message>
        <source>M3U Playlist</source>
        <translation>Lista de reprodução M3U</translation>
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
        <translation>Tipo de fonte</translation>
    </message>
    <message>
        <source>Delete Source</source>
        <translation>Excluir fonte</translation>
    </message>
    <message>
        <source>Source Type:</source>
        <translation>Tipo de fonte:</translation>
    </message>
    <message>
        <source>http://example.com/playlist.m3u or a local file path</source>
        <translation>http://example.com/playlist.m3u ou o caminho de um arquivo local</translation>
    </message>
    <message>
        <source>Playlist URL/File</source>
        <translation>URL/arquivo da lista de reprodução</translation>
    </message>
    <message>
        <source>Upload File...</source>
        <translation>Carregar arquivo...</translation>
    </message>
    <message>
        <source>Name:</source>
        <translation>Nome:</translation>
    </message>
    <message>
        <source>Playlist URL/File:</source>
        <translation>URL/arquivo da lista:</translation>
    </message>
    <message>
        <source>http://example.com:8080</source>
        <translation>http://example.com:8080</translation>
    </message>
    <message>
        <source>Test Connection</source>
        <translation>Testar conexão</translation>
    </message>
    <message>
        <source>Server URL:</source>
        <translation>URL do servidor:</translation>
    </message>
    <message>
        <source>Username:</source>
        <translation>Nome de usuário:</translation>
    </message>
    <message>
        <source>Password:</source>
        <translation>Senha:</translation>
    </message>
    <message>
        <source>Live Stream Format:</source>
        <translation>Formato das transmissões ao vivo:</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Senha</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Mostrar</translation>
    </message>
    <message>
        <source>Your Zevrino subscription key</source>
        <translation>Sua chave de assinatura Zevrino</translation>
    </message>
    <message>
        <source>Subscription Key:</source>
        <translation>Chave de assinatura:</translation>
    </message>
    <message>
        <source>Upload M3U Playlist</source>
        <translation>Carregar lista de reprodução M3U</translation>
    </message>
    <message>
        <source>Playlists (*.m3u *.m3u8);;All Files (*)</source>
        <translation>Listas de reprodução (*.m3u *.m3u8);;Todos os arquivos (*)</translation>
    </message>
    <message>
        <source>Testing...</source>
        <translation>Testando...</translation>
    </message>
    <message>
        <source>Connection OK</source>
        <translation>Conexão bem-sucedida</translation>
    </message>
    <message>
        <source>Failed: %1</source>
        <translation>Falhou: %1</translation>
    </message>
    <message>
        <source>Delete source &quot;%1&quot;? This cannot be undone.</source>
        <translation>Excluir a fonte &quot;%1&quot;? Isso não pode ser desfeito.</translation>
    </message>
</context>
<context>
    <name>SourceOptionsDialog</name>
    <message>
        <source>Source Options</source>
        <translation>Opções da fonte</translation>
    </message>
    <message>
        <source>Source: %1</source>
        <translation>Fonte: %1</translation>
    </message>
    <message>
        <source>The usual one</source>
        <translation>O habitual</translation>
    </message>
    <message>
        <source>The name under which the player asks this source for its catalog, its guide and its streams. Only some providers want a certain one. A playlist can name another one for a channel.</source>
        <translation>O nome com que o reprodutor pede a esta fonte o catálogo, o guia e as transmissões. Só alguns provedores exigem um determinado. Uma lista de reprodução pode indicar outro para um canal.</translation>
    </message>
    <message>
        <source>&amp;User agent:</source>
        <translation>Agente de &amp;usuário:</translation>
    </message>
    <message>
        <source>A user agent has at most 2048 characters: letters from A to Z, digits, blanks and the other characters of a plain English keyboard.</source>
        <translation>Um agente de usuário tem no máximo 2048 caracteres: letras de A a Z, algarismos, espaços e os demais caracteres de um teclado inglês simples.</translation>
    </message>
</context>
<context>
    <name>StreamInfoDialog</name>
    <message>
        <source>Stream Info</source>
        <translation>Informações da transmissão</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>Atualizar</translation>
    </message>
</context>
<context>
    <name>TabLibrary</name>
    <message>
        <source>Removed from Recently Watched</source>
        <translation>Removido dos assistidos recentemente</translation>
    </message>
    <message>
        <source>Removed from Favorites</source>
        <translation>Removido dos favoritos</translation>
    </message>
    <message>
        <source>Marked as Watched</source>
        <translation>Marcado como assistido</translation>
    </message>
    <message>
        <source>Marked as Unwatched</source>
        <translation>Marcado como não assistido</translation>
    </message>
    <message>
        <source>Category Hidden</source>
        <translation>Categoria ocultada</translation>
    </message>
</context>
<context>
    <name>TrackMenus</name>
    <message>
        <source>Disable</source>
        <translation>Desativar</translation>
    </message>
    <message>
        <source>Load Subtitle File...</source>
        <translation>Carregar arquivo de legendas...</translation>
    </message>
    <message>
        <source>No audio tracks</source>
        <translation>Nenhuma faixa de áudio</translation>
    </message>
    <message>
        <source>Load Subtitle File</source>
        <translation>Carregar arquivo de legendas</translation>
    </message>
    <message>
        <source>Subtitles (*.srt *.ass *.ssa *.sub *.vtt);;All Files (*)</source>
        <translation>Legendas (*.srt *.ass *.ssa *.sub *.vtt);;Todos os arquivos (*)</translation>
    </message>
</context>
<context>
    <name>UndoBar</name>
    <message>
        <source>Undo</source>
        <translation>Desfazer</translation>
    </message>
</context>
<context>
    <name>VlcPlayer</name>
    <message>
        <source>The stream stopped advancing for %1 seconds.</source>
        <translation>A transmissão não avança há %1 segundos.</translation>
    </message>
    <message>
        <source>Could not create media for URL: %1</source>
        <translation>Não foi possível criar a mídia para a URL: %1</translation>
    </message>
    <message>
        <source>Playback failed to start for: %1</source>
        <translation>Não foi possível iniciar a reprodução de: %1</translation>
    </message>
    <message>
        <source>libVLC encountered an error while streaming.</source>
        <translation>O libVLC encontrou um erro durante a transmissão.</translation>
    </message>
    <message>
        <source>The live stream stopped sending data.</source>
        <translation>A transmissão ao vivo parou de enviar dados.</translation>
    </message>
    <message>
        <source>Reached the end of the stream (this can also happen if a seek landed somewhere the stream couldn&apos;t resume from).</source>
        <translation>O fim da transmissão foi alcançado (isso também pode acontecer se um salto levou a um ponto a partir do qual ela não pôde continuar).</translation>
    </message>
    <message>
        <source>Disable</source>
        <translation>Desativar</translation>
    </message>
    <message>
        <source>Track %1</source>
        <translation>Faixa %1</translation>
    </message>
    <message>
        <source>Video codec: %1
Resolution: %2x%3
Frame rate: %4 fps

</source>
        <translation>Codec de vídeo: %1
Resolução: %2x%3
Taxa de quadros: %4 fps

</translation>
    </message>
    <message>
        <source>Audio codec: %1
Sample rate: %2 Hz
Channels: %3

</source>
        <translation>Codec de áudio: %1
Taxa de amostragem: %2 Hz
Canais: %3

</translation>
    </message>
    <message>
        <source>Input bitrate: %1 kbps
Demux bitrate: %2 kbps
Decoded video blocks: %3
Decoded audio blocks: %4
Displayed frames: %5   Lost frames: %6
</source>
        <translation>Taxa de bits de entrada: %1 kbps
Taxa de bits do demultiplexador: %2 kbps
Blocos de vídeo decodificados: %3
Blocos de áudio decodificados: %4
Quadros exibidos: %5   Quadros perdidos: %6
</translation>
    </message>
    <message>
        <source>No player.</source>
        <translation>Nenhum reprodutor.</translation>
    </message>
    <message>
        <source>No media loaded.</source>
        <translation>Nenhuma mídia carregada.</translation>
    </message>
    <message>
        <source>Audio tracks:
</source>
        <translation>Faixas de áudio:
</translation>
    </message>
    <message>
        <source>Subtitle tracks:
</source>
        <translation>Faixas de legendas:
</translation>
    </message>
    <message>
        <source>No track information available yet.</source>
        <translation>Ainda não há informações sobre as faixas.</translation>
    </message>
</context>
<context>
    <name>XtreamClient</name>
    <message>
        <source>Could not reach server or invalid response</source>
        <translation>Não foi possível acessar o servidor ou a resposta é inválida</translation>
    </message>
    <message>
        <source>Authentication failed - check server URL, username, and password</source>
        <translation>Falha na autenticação - verifique a URL do servidor, o nome de usuário e a senha</translation>
    </message>
</context>
<context>
    <name>ZevrinoClient</name>
    <message>
        <source>Invalid response from server</source>
        <translation>Resposta inválida do servidor</translation>
    </message>
    <message>
        <source>Subscription could not be resolved</source>
        <translation>Não foi possível resolver a assinatura</translation>
    </message>
    <message>
        <source>Server response was missing credentials</source>
        <translation>As credenciais não constavam da resposta do servidor</translation>
    </message>
    <message>
        <source>Could not reach server: %1</source>
        <translation>Não foi possível acessar o servidor: %1</translation>
    </message>
</context>
</TS>
