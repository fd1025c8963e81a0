<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="it_IT" sourcelanguage="en">
<context>
    <name>QObject</name>
    <message>
        <source>Serial Number: </source>
        <translation>Numero progressivo: </translation>
    </message>
    <message>
        <source>Invoice Number:</source>
        <translation>Fattura n.:</translation>
    </message>
    <message>
        <source>Delivery Number:</source>
        <translation>DDT n.:</translation>
    </message>
    <message>
        <source>Date:</source>
        <translation>Data:</translation>
    </message>
    <message>
        <source>Time:</source>
        <translation>Ora:</translation>
    </message>
    <message>
        <source>Table:</source>
        <translation>Tavolo:</translation>
    </message>
    <message>
        <source>Waiter:</source>
        <translation>Cameriere:</translation>
    </message>
    <message>
        <source>Note:</source>
        <translation>Note:</translation>
    </message>
    <message>
        <source>Credit:</source>
        <translation>Credito:</translation>
    </message>
    <message>
        <source>CUSTOMER</source>
        <translation>CLIENTE</translation>
    </message>
    <message>
        <source>Telephone:</source>
        <translation>Telefono:</translation>
    </message>
    <message>
        <source>License Number:</source>
        <translation>Partita IVA:</translation>
    </message>
    <message>
        <source>Fiscal Code:</source>
        <translation>Codice fiscale:</translation>
    </message>
    <message>
        <source>Num</source>
        <translation>Qtà</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Descrizione</translation>
    </message>
    <message>
        <source>Price</source>
        <translation>Prezzo</translation>
    </message>
    <message>
        <source>Amount</source>
        <translation>Importo</translation>
    </message>
    <message>
        <source>TOTAL</source>
        <translation>TOTALE</translation>
    </message>
    <message>
        <source>    Amount not paid: </source>
        <translation>    Importo non pagato: </translation>
    </message>
    <message>
        <source>Taxable</source>
        <translation>Imponibile</translation>
    </message>
    <message>
        <source>TaxRate</source>
        <translation>Aliquota</translation>
    </message>
    <message>
        <source>Tax</source>
        <translation>Imposta</translation>
    </message>
    <message>
        <source>SUMMARIES</source>
        <translation>RIEPILOGHI</translation>
    </message>
    <message>
        <source>BeginDate: </source>
        <translation>Data inizio: </translation>
    </message>
    <message>
        <source>EndDate: </source>
        <translation>Data fine: </translation>
    </message>
    <message>
        <source>PREFISCAL SUMMARY</source>
        <translation>RIEPILOGO PRECONTI</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>Numero</translation>
    </message>
    <message>
        <source>RECEIPTS SUMMARY</source>
        <translation>RIEPILOGO RICEVUTE</translation>
    </message>
    <message>
        <source>Serials</source>
        <translation>Numerazione</translation>
    </message>
    <message>
        <source>Amount not paid: </source>
        <translation>Importo non pagato: </translation>
    </message>
    <message>
        <source>Cash: </source>
        <translation>Contanti: </translation>
    </message>
    <message>
        <source>Credit Card: </source>
        <translation>Carta di credito: </translation>
    </message>
    <message>
        <source>Bancomat: </source>
        <translation>Bancomat: </translation>
    </message>
    <message>
        <source>Other: </source>
        <translation>Altro: </translation>
    </message>
    <message>
        <source>TAXRATE</source>
        <translation>ALIQ.</translation>
    </message>
    <message>
        <source>TAXABLE</source>
        <translation>IMPONIBILE</translation>
    </message>
    <message>
        <source>TAX</source>
        <translation>IMPOSTA</translation>
    </message>
    <message>
        <source>AMOUNT</source>
        <translation>IMPORTO</translation>
    </message>
    <message>
        <source>INVOICES SUMMARY</source>
        <translation>RIEPILOGO FATTURE</translation>
    </message>
    <message>
        <source>CANCELLED DOC SUMMARY</source>
        <translation>RIEPILOGO DOCUMENTI ANNULLATI</translation>
    </message>
    <message>
        <source>SERIAL</source>
        <translation>NUMERO</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Data</translation>
    </message>
    <message>
        <source>Payment</source>
        <translation>Pagamento</translation>
    </message>
    <message>
        <source>Invoice</source>
        <translation>Fattura</translation>
    </message>
    <message>
        <source>Receipt</source>
        <translation>Ricevuta</translation>
    </message>
    <message>
        <source>Deposit</source>
        <translation>Acconto</translation>
    </message>
    <message>
        <source>Refund</source>
        <translation>Rimborso</translation>
    </message>
    <message>
        <source>Discount</source>
        <translation>Sconto</translation>
    </message>
    <message>
        <source>Credit</source>
        <translation>Credito</translation>
    </message>
    <message>
        <source>Debit</source>
        <translation>Addebito</translation>
    </message>
    <message>
        <source>Balance</source>
        <translation>Saldo</translation>
    </message>
    <message>
        <source>Credit Note</source>
        <translation>Nota di credito</translation>
    </message>
    <message>
        <source>Delivery</source>
        <translation>Consegna</translation>
    </message>
    <message>
        <source>Fiscal Receipt</source>
        <translation>Scontrino fiscale</translation>
    </message>
    <message>
        <source>PaperWindow</source>
        <translation>Carta</translation>
    </message>
    <message>
        <source>Insert a new sheet</source>
        <translation>Inserire un nuovo foglio</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>e altri %1</translation>
    </message>
    <message>
        <source>The file %1 does not look like the settings of the suite: none of its outermost groups is named zelmora. It is open for reading only, since saving would leave little of it.</source>
        <translation>Il file %1 non sembra contenere le impostazioni della suite: nessuno dei gruppi più esterni si chiama zelmora. È aperto in sola lettura, perché salvandolo ne resterebbe poco.</translation>
    </message>
    <message>
        <source> (read only)</source>
        <translation> (sola lettura)</translation>
    </message>
    <message>
        <source>The file as it is now cannot be kept as %1: %2</source>
        <translation>Il file com&apos;è ora non può essere conservato come %1: %2</translation>
    </message>
    <message>
        <source>line %1: %2</source>
        <translation>riga %1: %2</translation>
    </message>
    <message>
        <source>lines %1 to %2: %3</source>
        <translation>righe da %1 a %2: %3</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;File</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>&amp;Apri...</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Salva</translation>
    </message>
    <message>
        <source>Save &amp;as...</source>
        <translation>Salva &amp;con nome...</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Esci</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Modifica</translation>
    </message>
    <message>
        <source>Edit &amp;value</source>
        <translation>Modifica &amp;valore</translation>
    </message>
    <message>
        <source>&amp;Find</source>
        <translation>&amp;Trova</translation>
    </message>
    <message>
        <source>Find &amp;next</source>
        <translation>Trova &amp;successivo</translation>
    </message>
    <message>
        <source>%1 found</source>
        <translation>Trovati: %1</translation>
    </message>
    <message>
        <source>&amp;About Zelmora settings</source>
        <translation>&amp;Informazioni su Zelmora impostazioni</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Aiuto</translation>
    </message>
    <message>
        <source>&amp;Redo %1</source>
        <translation>&amp;Ripristina %1</translation>
    </message>
    <message>
        <source>&amp;Undo %1</source>
        <translation>A&amp;nnulla %1</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Visualizza</translation>
    </message>
    <message>
        <source>A setting outside every group is never found: choose a group first.</source>
        <translation>Un&apos;impostazione fuori da ogni gruppo non viene mai trovata: scegliere prima un gruppo.</translation>
    </message>
    <message>
        <source>Add a &amp;group...</source>
        <translation>Aggiungi un &amp;gruppo...</translation>
    </message>
    <message>
        <source>Add a &amp;setting...</source>
        <translation>Aggiungi un&apos;i&amp;mpostazione...</translation>
    </message>
    <message>
        <source>All settings as in the file</source>
        <translation>Tutte le impostazioni come nel file</translation>
    </message>
    <message>
        <source>Another program has changed or removed the file %1 since it was opened.</source>
        <translation>Un altro programma ha modificato o rimosso il file %1 dopo l&apos;apertura.</translation>
    </message>
    <message>
        <source>Back to what the file has</source>
        <translation>Torna a quello che ha il file</translation>
    </message>
    <message>
        <source>Back to what the file has: %1</source>
        <translation>Torna a quello che ha il file: %1</translation>
    </message>
    <message>
        <source>Back to what the file has: nothing</source>
        <translation>Torna a quello che ha il file: nulla</translation>
    </message>
    <message>
        <source>Begin with a complete file</source>
        <translation>Comincia con un file completo</translation>
    </message>
    <message>
        <source>Choose a folder</source>
        <translation>Scegli una cartella</translation>
    </message>
    <message>
        <source>Database</source>
        <translation>Banca dati</translation>
    </message>
    <message>
        <source>Delivery note</source>
        <translation>Bolla di consegna</translation>
    </message>
    <message>
        <source>Dishes sold</source>
        <translation>Piatti venduti</translation>
    </message>
    <message>
        <source>No program of the suite reads it.</source>
        <translation>Nessun programma della suite lo legge.</translation>
    </message>
    <message>
        <source>The programs of the suite read the groups in &quot;zelmora&quot;, the first group of the file.</source>
        <translation>I programmi della suite leggono i gruppi in &quot;zelmora&quot;, il primo gruppo del file.</translation>
    </message>
    <message>
        <source>Each setting has its own help: go to it and press F1.</source>
        <translation>Ogni impostazione ha il suo aiuto: andarci e premere F1.</translation>
    </message>
    <message>
        <source>Fiscal receipt</source>
        <translation>Scontrino fiscale</translation>
    </message>
    <message>
        <source>From %1 to %2</source>
        <translation>Da %1 a %2</translation>
    </message>
    <message>
        <source>Groups of settings</source>
        <translation>Gruppi di impostazioni</translation>
    </message>
    <message>
        <source>Help on this &amp;setting</source>
        <translation>Aiuto su questa &amp;impostazione</translation>
    </message>
    <message>
        <source>It shows on: %1.</source>
        <translation>Si vede su: %1.</translation>
    </message>
    <message>
        <source>It takes: %1.</source>
        <translation>Accetta: %1.</translation>
    </message>
    <message>
        <source>Kitchen order</source>
        <translation>Comanda</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Lingua</translation>
    </message>
    <message>
        <source>Log</source>
        <translation>Registro dei messaggi</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Messaggio</translation>
    </message>
    <message>
        <source>No program would find &quot;%1&quot;: a name holds no point, no &quot;:&quot;, &quot;=&quot; or &quot;}&quot;, no character that Western European languages lack, and no blank at its ends.</source>
        <translation>Nessun programma troverebbe &quot;%1&quot;: un nome non contiene punti, &quot;:&quot;, &quot;=&quot; o &quot;}&quot;, né caratteri estranei alle lingue dell&apos;Europa occidentale, né spazi alle estremità.</translation>
    </message>
    <message>
        <source>No program would find &quot;%1&quot;: a name in XML begins with a letter, and has letters, digits, &quot;-&quot; and &quot;_&quot;.</source>
        <translation>Nessun programma troverebbe &quot;%1&quot;: in XML un nome comincia con una lettera e contiene lettere, cifre, &quot;-&quot; e &quot;_&quot;.</translation>
    </message>
    <message>
        <source>Nothing that this document prints depends on it.</source>
        <translation>Nulla di ciò che questo documento stampa ne dipende.</translation>
    </message>
    <message>
        <source>Only the first group at the top is read: a second one beside it would never be found.</source>
        <translation>Viene letto solo il primo gruppo più esterno: un secondo accanto non verrebbe mai trovato.</translation>
    </message>
    <message>
        <source>Open &amp;recent</source>
        <translation>Apri &amp;recenti</translation>
    </message>
    <message>
        <source>Order with prices</source>
        <translation>Preconto</translation>
    </message>
    <message>
        <source>Programs</source>
        <translation>Programmi</translation>
    </message>
    <message>
        <source>Put it right</source>
        <translation>Correggi</translation>
    </message>
    <message>
        <source>Put it right: %1</source>
        <translation>Correggi: %1</translation>
    </message>
    <message>
        <source>Re&amp;load</source>
        <translation>Ri&amp;carica</translation>
    </message>
    <message>
        <source>Re&amp;move</source>
        <translation>Rim&amp;uovi</translation>
    </message>
    <message>
        <source>Re&amp;name...</source>
        <translation>Ri&amp;nomina...</translation>
    </message>
    <message>
        <source>Read it again</source>
        <translation>Rileggi</translation>
    </message>
    <message>
        <source>Report and statement</source>
        <translation>Chiusura ed estratto</translation>
    </message>
    <message>
        <source>Save as...</source>
        <translation>Salva con nome...</translation>
    </message>
    <message>
        <source>Show the value</source>
        <translation>Mostra il valore</translation>
    </message>
    <message>
        <source>Take %1 out of the file</source>
        <translation>Togli %1 dal file</translation>
    </message>
    <message>
        <source>Take back the change of %1</source>
        <translation>Annulla la modifica di %1</translation>
    </message>
    <message>
        <source>Take it out of the file. Without it: %1.</source>
        <translation>Togli dal file. Senza: %1.</translation>
    </message>
    <message>
        <source>The file %1 has no settings yet.</source>
        <translation>Il file %1 non ha ancora impostazioni.</translation>
    </message>
    <message>
        <source>The file %1 may not be written: save under another name.</source>
        <translation>Il file %1 non può essere scritto: salvare con un altro nome.</translation>
    </message>
    <message>
        <source>The name of the new group:</source>
        <translation>Il nome del nuovo gruppo:</translation>
    </message>
    <message>
        <source>The name of the new setting in &quot;%1&quot;:</source>
        <translation>Il nome della nuova impostazione in &quot;%1&quot;:</translation>
    </message>
    <message>
        <source>The new name of &quot;%1&quot;:</source>
        <translation>Il nuovo nome di &quot;%1&quot;:</translation>
    </message>
    <message>
        <source>There is a group &quot;%1&quot; here already.</source>
        <translation>Qui c&apos;è già un gruppo &quot;%1&quot;.</translation>
    </message>
    <message>
        <source>There is a setting &quot;%1&quot; here already.</source>
        <translation>Qui c&apos;è già un&apos;impostazione &quot;%1&quot;.</translation>
    </message>
    <message>
        <source>There is no file %1 yet.</source>
        <translation>Il file %1 non c&apos;è ancora.</translation>
    </message>
    <message>
        <source>These are printed with it: %1.</source>
        <translation>Si stampano con queste impostazioni: %1.</translation>
    </message>
    <message>
        <source>Without it: %1.</source>
        <translation>Senza: %1.</translation>
    </message>
    <message>
        <source>Zelmora settings %1
Changes the settings of the suite, and shows what is wrong with them.</source>
        <translation>Zelmora impostazioni %1
Modifica le impostazioni della suite e mostra che cosa non va.</translation>
    </message>
    <message>
        <source>what saving dropped</source>
        <translation>quanto tolto dal salvataggio</translation>
    </message>
    <message>
        <source>a complete file</source>
        <translation>file completo</translation>
    </message>
    <message>
        <source>changed</source>
        <translation>modificata</translation>
    </message>
    <message>
        <source>not set</source>
        <translation>assente</translation>
    </message>
    <message>
        <source>What stands on this document, and how wide it is.</source>
        <translation>Che cosa sta su questo documento, e quanto è largo.</translation>
    </message>
    <message>
        <source>In the file: %1.</source>
        <translation>Nel file: %1.</translation>
    </message>
    <message>
        <source>&amp;Paper beside the settings</source>
        <translation>&amp;Carta accanto alle impostazioni</translation>
    </message>
    <message>
        <source>not set: %1</source>
        <translation>assente: %1</translation>
    </message>
    <message>
        <source>something is wrong</source>
        <translation>qualcosa non va</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>Trova</translation>
    </message>
    <message>
        <source>Find a name or a value</source>
        <translation>Cerca un nome o un valore</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Impostazioni</translation>
    </message>
    <message>
        <source>The file %1 cannot be read: %2</source>
        <translation>Il file %1 non può essere letto: %2</translation>
    </message>
    <message>
        <source>Saving will drop from the file:</source>
        <translation>Il salvataggio toglierà dal file:</translation>
    </message>
    <message>
        <source>Nothing may stand before the first group of an XML file, no declaration and no comment: no program finds a setting in this file.</source>
        <translation>Prima del primo gruppo di un file XML non può esserci nulla, né dichiarazioni né commenti: nessun programma trova un&apos;impostazione in questo file.</translation>
    </message>
    <message>
        <source>it is not XML</source>
        <translation>non è XML</translation>
    </message>
    <message>
        <source>The file would not be XML, and nothing would be read back, because of:</source>
        <translation>Il file non sarebbe XML e non verrebbe riletto nulla, a causa di:</translation>
    </message>
    <message>
        <source>no file</source>
        <translation>nessun file</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Apri</translation>
    </message>
    <message>
        <source>Save as</source>
        <translation>Salva con nome</translation>
    </message>
    <message>
        <source>These settings would read back otherwise, or not at all:</source>
        <translation>Queste impostazioni verrebbero rilette in modo diverso, o per niente:</translation>
    </message>
    <message>
        <source>Nothing of the file %1 could be read. Saving empties it.</source>
        <translation>Del file %1 non è stato letto nulla. Il salvataggio lo svuota.</translation>
    </message>
    <message>
        <source>it is not a file</source>
        <translation>non è un file</translation>
    </message>
    <message>
        <source>its name is no UTF-8: give it another one</source>
        <translation>il suo nome non è in UTF-8: dargliene un altro</translation>
    </message>
    <message>
        <source>Save all the same</source>
        <translation>Salva comunque</translation>
    </message>
    <message>
        <source>Another program has changed or removed the file %1 since it was opened. Saving drops what it changed.</source>
        <translation>Un altro programma ha modificato o rimosso il file %1 dopo l&apos;apertura. Il salvataggio cancella quelle modifiche.</translation>
    </message>
    <message>
        <source>The file %1 cannot be written: %2
Your changes are still in this window.</source>
        <translation>Il file %1 non può essere scritto: %2
Le modifiche sono ancora in questa finestra.</translation>
    </message>
    <message>
        <source>Saved.</source>
        <translation>Salvato.</translation>
    </message>
    <message>
        <source>The settings have changed. Save the changes?</source>
        <translation>Le impostazioni sono state modificate. Salvare le modifiche?</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not found.</source>
        <translation>&quot;%1&quot; non è stato trovato.</translation>
    </message>
    <message>
        <source>A value cannot hold a quotation mark or a semicolon:
the one would be dropped, the other would end the value.</source>
        <translation>Un valore non può contenere virgolette né punti e virgola:
le prime verrebbero tolte, i secondi chiuderebbero il valore.</translation>
    </message>
    <message>
        <source>The file cannot be read.</source>
        <translation>Il file non può essere letto.</translation>
    </message>
    <message>
        <source>There is no settings file: what holds without one is taken.</source>
        <translation>Non c&apos;è un file di impostazioni: vale ciò che vale senza.</translation>
    </message>
    <message>
        <source>A number is due, and the text is none.</source>
        <translation>Serve un numero, e il testo non lo è.</translation>
    </message>
    <message>
        <source>The XML breaks off here: nothing after it is printed.</source>
        <translation>L&apos;XML si interrompe qui: ciò che segue non viene stampato.</translation>
    </message>
    <message>
        <source>The job has no element &quot;method&quot;: nothing is printed.</source>
        <translation>Il lavoro di stampa non ha l&apos;elemento &quot;method&quot;: non viene stampato nulla.</translation>
    </message>
    <message>
        <source>There is no print method of that name: printing stops here.</source>
        <translation>Nessun metodo di stampa ha questo nome: la stampa si ferma qui.</translation>
    </message>
    <message>
        <source>An element before &quot;method&quot; is ignored.</source>
        <translation>Un elemento che precede &quot;method&quot; viene ignorato.</translation>
    </message>
    <message>
        <source>A second &quot;method&quot; opens the document again: it is opened twice and closed once.</source>
        <translation>Un secondo &quot;method&quot; riapre il documento, che viene aperto due volte e chiuso una.</translation>
    </message>
    <message>
        <source>No print method reads an element of that name.</source>
        <translation>Nessun metodo di stampa legge un elemento con questo nome.</translation>
    </message>
    <message>
        <source>No print method reads an attribute of that name of this element.</source>
        <translation>Nessun metodo di stampa legge un attributo con questo nome in questo elemento.</translation>
    </message>
    <message>
        <source>Other print methods read this element, this one does not.</source>
        <translation>Altri metodi di stampa leggono questo elemento, questo no.</translation>
    </message>
    <message>
        <source>Other print methods read this attribute of the element, this one does not.</source>
        <translation>Altri metodi di stampa leggono questo attributo dell&apos;elemento, questo no.</translation>
    </message>
    <message>
        <source>The attribute stands twice in its element, which XML forbids: the second one counts for nothing.</source>
        <translation>L&apos;attributo compare due volte nel suo elemento, cosa che l&apos;XML vieta: il secondo non conta.</translation>
    </message>
    <message>
        <source>The attribute is absent or empty: a column or a line stays empty.</source>
        <translation>L&apos;attributo manca o è vuoto: una colonna o una riga resta vuota.</translation>
    </message>
    <message>
        <source>A date is due, and the text is none in a usual form.</source>
        <translation>Serve una data, e il testo non lo è in una forma consueta.</translation>
    </message>
    <message>
        <source>Figures of the document do not agree.</source>
        <translation>Gli importi del documento non quadrano.</translation>
    </message>
    <message>
        <source>An apostrophe ends the register&apos;s text early.</source>
        <translation>Un apostrofo chiude in anticipo il testo per il registratore.</translation>
    </message>
    <message>
        <source>A line break, a tab or another control character stands inside a line.</source>
        <translation>Dentro una riga c&apos;è un a capo, una tabulazione o un altro carattere di controllo.</translation>
    </message>
    <message>
        <source>A character that the script cannot hold prints as &quot;?&quot;.</source>
        <translation>Un carattere che i comandi del registratore non possono contenere viene stampato come &quot;?&quot;.</translation>
    </message>
    <message>
        <source>The entity is not declared and stands for nothing.</source>
        <translation>L&apos;entità non è dichiarata e non sta per nulla.</translation>
    </message>
    <message>
        <source>The fields of an address after an empty one do not print.</source>
        <translation>I campi di un indirizzo che seguono un campo vuoto non vengono stampati.</translation>
    </message>
    <message>
        <source>The last cancelled document has fewer than three attributes.</source>
        <translation>L&apos;ultimo documento annullato ha meno di tre attributi.</translation>
    </message>
    <message>
        <source>A line is wider than the paper.</source>
        <translation>Una riga è più larga della carta.</translation>
    </message>
    <message>
        <source>A description is cut to its column.</source>
        <translation>Una descrizione viene tagliata alla larghezza della colonna.</translation>
    </message>
    <message>
        <source>&quot;TOTALE&quot; prints as &quot;SOMMA&quot;.</source>
        <translation>&quot;TOTALE&quot; viene stampato come &quot;SOMMA&quot;.</translation>
    </message>
    <message>
        <source>What the job says here does not reach the paper.</source>
        <translation>Ciò che il lavoro di stampa dice qui non arriva sulla carta.</translation>
    </message>
    <message>
        <source>The first group is not &quot;zelmora&quot;: no setting is found.</source>
        <translation>Il primo gruppo non è &quot;zelmora&quot;: non viene trovata nessuna impostazione.</translation>
    </message>
    <message>
        <source>A semicolon is missing: what follows is swallowed.</source>
        <translation>Manca un punto e virgola: ciò che segue va perso.</translation>
    </message>
    <message>
        <source>The text is skipped, and what stands in it is not found.</source>
        <translation>Il testo viene saltato, e ciò che contiene non viene trovato.</translation>
    </message>
    <message>
        <source>Only the first group at the top is read.</source>
        <translation>Viene letto solo il primo dei gruppi più esterni.</translation>
    </message>
    <message>
        <source>A setting outside every group is never found.</source>
        <translation>Un&apos;impostazione fuori da ogni gruppo non viene mai trovata.</translation>
    </message>
    <message>
        <source>No program reads a group of that name here.</source>
        <translation>Nessun programma legge qui un gruppo con questo nome.</translation>
    </message>
    <message>
        <source>No program reads a setting of that name here.</source>
        <translation>Nessun programma legge qui un&apos;impostazione con questo nome.</translation>
    </message>
    <message>
        <source>A flag is &quot;true&quot; or &quot;false&quot; in just these letters: anything else reads as false.</source>
        <translation>Un&apos;opzione è &quot;true&quot; o &quot;false&quot;, scritto proprio così: tutto il resto vale false.</translation>
    </message>
    <message>
        <source>The number is outside its range.</source>
        <translation>Il numero è fuori dai suoi limiti.</translation>
    </message>
    <message>
        <source>The value is none of the words that the setting takes.</source>
        <translation>Il valore non è una delle parole che l&apos;impostazione accetta.</translation>
    </message>
    <message>
        <source>The columns leave no room for the description.</source>
        <translation>Le colonne non lasciano spazio alla descrizione.</translation>
    </message>
    <message>
        <source>The setting stands twice in its group: the later value holds.</source>
        <translation>L&apos;impostazione compare due volte nel suo gruppo: vale l&apos;ultimo valore.</translation>
    </message>
    <message>
        <source>The group stands twice: the first value that is not empty holds.</source>
        <translation>Il gruppo compare due volte: vale il primo valore non vuoto.</translation>
    </message>
    <message>
        <source>There are no comments: the text becomes part of the name that follows, which is not found.</source>
        <translation>I commenti non esistono: il testo diventa parte del nome che segue, che non viene trovato.</translation>
    </message>
    <message>
        <source>The programs read &quot;?&quot; for a character beyond Western European ones.</source>
        <translation>Di un carattere che non è dell&apos;Europa occidentale i programmi leggono &quot;?&quot;.</translation>
    </message>
    <message>
        <source>The translation cannot be loaded: the labels stay English.</source>
        <translation>La traduzione non può essere caricata: le etichette restano in inglese.</translation>
    </message>
    <message>
        <source>Other users of the machine may read the password.</source>
        <translation>Altri utenti della macchina possono leggere la password.</translation>
    </message>
    <message>
        <source>The paper is wider than the register&apos;s 32 characters, within which lines are centred.</source>
        <translation>La carta è più larga dei 32 caratteri del registratore, entro i quali le righe vengono centrate.</translation>
    </message>
    <message>
        <source>The group holds nothing: it is as if it were not there.</source>
        <translation>Il gruppo non contiene nulla: è come se non ci fosse.</translation>
    </message>
    <message>
        <source>The translation is found in one working folder only.</source>
        <translation>La traduzione viene trovata da una sola cartella di lavoro.</translation>
    </message>
    <message>
        <source>The setting has no effect in this document.</source>
        <translation>L&apos;impostazione non ha effetto in questo documento.</translation>
    </message>
    <message>
        <source>Another program is changing the file %1. Try again when it is done.</source>
        <translation>Un altro programma sta modificando il file %1. Riprovare quando avrà finito.</translation>
    </message>
    <message>
        <source>The file %1 cannot be written: %2</source>
        <translation>Il file %1 non può essere scritto: %2</translation>
    </message>
    <message>
        <source>The file %1 would not be XML, and nothing would be read back, because of: %2</source>
        <translation>Il file %1 non sarebbe XML e non verrebbe riletto nulla, a causa di: %2</translation>
    </message>
    <message>
        <source>Another program has changed or removed the file %1 meanwhile. Nothing was written.</source>
        <translation>Nel frattempo un altro programma ha modificato o rimosso il file %1. Non è stato scritto nulla.</translation>
    </message>
    <message>
        <source>(the file says &quot;%1&quot;)</source>
        <translation>(il file dice &quot;%1&quot;)</translation>
    </message>
    <message>
        <source>tab</source>
        <translation>tabulazione</translation>
    </message>
    <message>
        <source>line break</source>
        <translation>a capo</translation>
    </message>
    <message>
        <source>apostrophe</source>
        <translation>apostrofo</translation>
    </message>
    <message>
        <source>blank that does not break</source>
        <translation>spazio che non va a capo</translation>
    </message>
    <message>
        <source>exclamation mark upside down</source>
        <translation>punto esclamativo capovolto</translation>
    </message>
    <message>
        <source>cent sign</source>
        <translation>simbolo del centesimo</translation>
    </message>
    <message>
        <source>pound sign</source>
        <translation>simbolo della sterlina</translation>
    </message>
    <message>
        <source>yen sign</source>
        <translation>simbolo dello yen</translation>
    </message>
    <message>
        <source>section sign</source>
        <translation>segno di paragrafo</translation>
    </message>
    <message>
        <source>copyright sign</source>
        <translation>simbolo di copyright</translation>
    </message>
    <message>
        <source>angled quotation mark</source>
        <translation>virgoletta ad angolo</translation>
    </message>
    <message>
        <source>hyphen that is not seen</source>
        <translation>trattino invisibile</translation>
    </message>
    <message>
        <source>registered trademark sign</source>
        <translation>simbolo di marchio registrato</translation>
    </message>
    <message>
        <source>degree sign</source>
        <translation>simbolo del grado</translation>
    </message>
    <message>
        <source>plus-minus sign</source>
        <translation>segno più o meno</translation>
    </message>
    <message>
        <source>acute accent</source>
        <translation>accento acuto</translation>
    </message>
    <message>
        <source>micro sign</source>
        <translation>simbolo di micro</translation>
    </message>
    <message>
        <source>dot in the middle</source>
        <translation>punto a mezza altezza</translation>
    </message>
    <message>
        <source>question mark upside down</source>
        <translation>punto interrogativo capovolto</translation>
    </message>
    <message>
        <source>A and E in one letter</source>
        <translation>A ed E in una lettera sola</translation>
    </message>
    <message>
        <source>multiplication sign</source>
        <translation>segno di moltiplicazione</translation>
    </message>
    <message>
        <source>O with a stroke</source>
        <translation>O con barra</translation>
    </message>
    <message>
        <source>German sharp s</source>
        <translation>s doppia tedesca</translation>
    </message>
    <message>
        <source>a and e in one letter</source>
        <translation>a ed e in una lettera sola</translation>
    </message>
    <message>
        <source>division sign</source>
        <translation>segno di divisione</translation>
    </message>
    <message>
        <source>o with a stroke</source>
        <translation>o con barra</translation>
    </message>
    <message>
        <source>D with a stroke</source>
        <translation>D con barra</translation>
    </message>
    <message>
        <source>d with a stroke</source>
        <translation>d con barra</translation>
    </message>
    <message>
        <source>i without its dot</source>
        <translation>i senza punto</translation>
    </message>
    <message>
        <source>L with a stroke</source>
        <translation>L con barra</translation>
    </message>
    <message>
        <source>l with a stroke</source>
        <translation>l con barra</translation>
    </message>
    <message>
        <source>O and E in one letter</source>
        <translation>O ed E in una lettera sola</translation>
    </message>
    <message>
        <source>o and e in one letter</source>
        <translation>o ed e in una lettera sola</translation>
    </message>
    <message>
        <source>florin sign</source>
        <translation>simbolo del fiorino</translation>
    </message>
    <message>
        <source>curved apostrophe</source>
        <translation>apostrofo curvo</translation>
    </message>
    <message>
        <source>circumflex</source>
        <translation>accento circonflesso</translation>
    </message>
    <message>
        <source>tilde</source>
        <translation>tilde</translation>
    </message>
    <message>
        <source>blank of no width</source>
        <translation>spazio senza larghezza</translation>
    </message>
    <message>
        <source>hyphen</source>
        <translation>trattino</translation>
    </message>
    <message>
        <source>hyphen that does not break</source>
        <translation>trattino che non va a capo</translation>
    </message>
    <message>
        <source>dash</source>
        <translation>lineetta</translation>
    </message>
    <message>
        <source>long dash</source>
        <translation>lineetta lunga</translation>
    </message>
    <message>
        <source>curved single quotation mark</source>
        <translation>virgoletta semplice curva</translation>
    </message>
    <message>
        <source>low single quotation mark</source>
        <translation>virgoletta semplice bassa</translation>
    </message>
    <message>
        <source>curved quotation mark</source>
        <translation>virgoletta curva</translation>
    </message>
    <message>
        <source>low quotation mark</source>
        <translation>virgoletta bassa</translation>
    </message>
    <message>
        <source>dagger</source>
        <translation>croce</translation>
    </message>
    <message>
        <source>bullet</source>
        <translation>punto elenco</translation>
    </message>
    <message>
        <source>three dots in one character</source>
        <translation>tre puntini in un carattere solo</translation>
    </message>
    <message>
        <source>per thousand sign</source>
        <translation>segno di per mille</translation>
    </message>
    <message>
        <source>sign for feet or minutes</source>
        <translation>segno di piedi o minuti</translation>
    </message>
    <message>
        <source>sign for inches or seconds</source>
        <translation>segno di pollici o secondi</translation>
    </message>
    <message>
        <source>angled single quotation mark</source>
        <translation>virgoletta semplice ad angolo</translation>
    </message>
    <message>
        <source>fraction bar</source>
        <translation>barra di frazione</translation>
    </message>
    <message>
        <source>euro sign</source>
        <translation>simbolo dell&apos;euro</translation>
    </message>
    <message>
        <source>number sign</source>
        <translation>segno di numero</translation>
    </message>
    <message>
        <source>trademark sign</source>
        <translation>simbolo di marchio</translation>
    </message>
    <message>
        <source>arrow</source>
        <translation>freccia</translation>
    </message>
    <message>
        <source>minus sign</source>
        <translation>segno meno</translation>
    </message>
    <message>
        <source>sign for about</source>
        <translation>segno di circa</translation>
    </message>
    <message>
        <source>less or equal sign</source>
        <translation>segno di minore o uguale</translation>
    </message>
    <message>
        <source>greater or equal sign</source>
        <translation>segno di maggiore o uguale</translation>
    </message>
    <message>
        <source>star</source>
        <translation>stella</translation>
    </message>
    <message>
        <source>tick</source>
        <translation>segno di spunta</translation>
    </message>
    <message>
        <source>heart</source>
        <translation>cuore</translation>
    </message>
    <message>
        <source>byte-order mark, which is not seen</source>
        <translation>segno dell&apos;ordine dei byte, invisibile</translation>
    </message>
    <message>
        <source>sign for a character that could not be read</source>
        <translation>segno di un carattere che non è stato possibile leggere</translation>
    </message>
    <message>
        <source>%1 with grave accent</source>
        <translation>%1 con accento grave</translation>
    </message>
    <message>
        <source>%1 with acute accent</source>
        <translation>%1 con accento acuto</translation>
    </message>
    <message>
        <source>%1 with circumflex</source>
        <translation>%1 con accento circonflesso</translation>
    </message>
    <message>
        <source>%1 with tilde</source>
        <translation>%1 con tilde</translation>
    </message>
    <message>
        <source>%1 with a bar above</source>
        <translation>%1 con lineetta sopra</translation>
    </message>
    <message>
        <source>%1 with breve</source>
        <translation>%1 con breve</translation>
    </message>
    <message>
        <source>%1 with a dot above</source>
        <translation>%1 con punto sopra</translation>
    </message>
    <message>
        <source>%1 with two dots</source>
        <translation>%1 con due punti sopra</translation>
    </message>
    <message>
        <source>%1 with a ring</source>
        <translation>%1 con anello</translation>
    </message>
    <message>
        <source>%1 with double acute accent</source>
        <translation>%1 con doppio accento acuto</translation>
    </message>
    <message>
        <source>%1 with caron</source>
        <translation>%1 con pipa</translation>
    </message>
    <message>
        <source>%1 with a dot below</source>
        <translation>%1 con punto sotto</translation>
    </message>
    <message>
        <source>%1 with a comma below</source>
        <translation>%1 con virgola sotto</translation>
    </message>
    <message>
        <source>%1 with cedilla</source>
        <translation>%1 con cediglia</translation>
    </message>
    <message>
        <source>%1 with ogonek</source>
        <translation>%1 con codetta</translation>
    </message>
    <message>
        <source>Latin letter</source>
        <translation>lettera latina</translation>
    </message>
    <message>
        <source>Greek letter</source>
        <translation>lettera greca</translation>
    </message>
    <message>
        <source>Cyrillic letter</source>
        <translation>lettera cirillica</translation>
    </message>
    <message>
        <source>Hebrew letter</source>
        <translation>lettera ebraica</translation>
    </message>
    <message>
        <source>Arabic letter</source>
        <translation>lettera araba</translation>
    </message>
    <message>
        <source>Chinese character</source>
        <translation>carattere cinese</translation>
    </message>
    <message>
        <source>Japanese character</source>
        <translation>carattere giapponese</translation>
    </message>
    <message>
        <source>Korean character</source>
        <translation>carattere coreano</translation>
    </message>
    <message>
        <source>accent by itself</source>
        <translation>accento isolato</translation>
    </message>
    <message>
        <source>digit or fraction</source>
        <translation>cifra o frazione</translation>
    </message>
    <message>
        <source>blank of a special width</source>
        <translation>spazio di larghezza particolare</translation>
    </message>
    <message>
        <source>control character</source>
        <translation>carattere di controllo</translation>
    </message>
    <message>
        <source>character that is not seen</source>
        <translation>carattere invisibile</translation>
    </message>
    <message>
        <source>half of a character</source>
        <translation>mezzo carattere</translation>
    </message>
    <message>
        <source>character without a meaning</source>
        <translation>carattere senza significato</translation>
    </message>
    <message>
        <source>punctuation mark</source>
        <translation>segno di punteggiatura</translation>
    </message>
    <message>
        <source>currency sign</source>
        <translation>simbolo di valuta</translation>
    </message>
    <message>
        <source>sign</source>
        <translation>simbolo</translation>
    </message>
    <message>
        <source>letter of a foreign script</source>
        <translation>lettera di un&apos;altra scrittura</translation>
    </message>
    <message>
        <source>picture (emoji)</source>
        <translation>figurina (emoji)</translation>
    </message>
    <message>
        <source>the labels are English</source>
        <translation>le etichette sono in inglese</translation>
    </message>
    <message>
        <source>The folder of the translation, with a slash at its end unless file is &quot;/&quot;.</source>
        <translation>La cartella della traduzione, con una barra in fondo, salvo che file sia &quot;/&quot;.</translation>
    </message>
    <message>
        <source>The name of the translation, or &quot;/&quot; for that of the user&apos;s language.</source>
        <translation>Il nome della traduzione, oppure &quot;/&quot; per quella della lingua dell&apos;utente.</translation>
    </message>
    <message>
        <source>The least severe messages that are logged.</source>
        <translation>I messaggi meno gravi che vengono registrati.</translation>
    </message>
    <message>
        <source>the root folder</source>
        <translation>la cartella radice</translation>
    </message>
    <message>
        <source>The folder of the log, which must exist.</source>
        <translation>La cartella del registro dei messaggi, che deve esistere.</translation>
    </message>
    <message>
        <source>nothing is logged</source>
        <translation>non viene registrato nulla</translation>
    </message>
    <message>
        <source>The name of the log in its folder.</source>
        <translation>Il nome del registro dei messaggi nella sua cartella.</translation>
    </message>
    <message>
        <source>APPEND adds to the log, OVERWRITE empties it at each start.</source>
        <translation>APPEND aggiunge al registro dei messaggi, OVERWRITE lo svuota a ogni avvio.</translation>
    </message>
    <message>
        <source>the database with the role&apos;s name</source>
        <translation>il database che ha il nome del ruolo</translation>
    </message>
    <message>
        <source>The database.</source>
        <translation>Il database.</translation>
    </message>
    <message>
        <source>the name of the system&apos;s user</source>
        <translation>il nome dell&apos;utente del sistema</translation>
    </message>
    <message>
        <source>The role that the programs take in the database.</source>
        <translation>Il ruolo che i programmi assumono nel database.</translation>
    </message>
    <message>
        <source>no password</source>
        <translation>nessuna password</translation>
    </message>
    <message>
        <source>The password of that role.</source>
        <translation>La password di quel ruolo.</translation>
    </message>
    <message>
        <source>the server on this machine</source>
        <translation>il server su questa macchina</translation>
    </message>
    <message>
        <source>The server: a name, an address, or the folder of its socket.</source>
        <translation>Il server: un nome, un indirizzo o la cartella del suo socket.</translation>
    </message>
    <message>
        <source>The folder of the suite&apos;s programs, without a slash at its end.</source>
        <translation>La cartella dei programmi della suite, senza barra in fondo.</translation>
    </message>
    <message>
        <source>The width of the quantity column, in characters.</source>
        <translation>La larghezza della colonna della quantità, in caratteri.</translation>
    </message>
    <message>
        <source>The width of the unit price column, in characters; in a statement of account that of the amount.</source>
        <translation>La larghezza della colonna del prezzo unitario, in caratteri; in un estratto conto quella dell&apos;importo.</translation>
    </message>
    <message>
        <source>The width of the total column, in characters.</source>
        <translation>La larghezza della colonna del totale, in caratteri.</translation>
    </message>
    <message>
        <source>The characters in a line of the paper.</source>
        <translation>I caratteri in una riga della carta.</translation>
    </message>
    <message>
        <source>The lines of a page; nothing depends on it yet.</source>
        <translation>Le righe di una pagina; per ora non ne dipende nulla.</translation>
    </message>
    <message>
        <source>nothing changes</source>
        <translation>non cambia nulla</translation>
    </message>
    <message>
        <source>The style of the document; nothing depends on it yet.</source>
        <translation>Lo stile del documento; per ora non ne dipende nulla.</translation>
    </message>
    <message>
        <source>Prints the top margin.</source>
        <translation>Stampa il margine superiore.</translation>
    </message>
    <message>
        <source>Prints the lines of the heading.</source>
        <translation>Stampa le righe dell&apos;intestazione.</translation>
    </message>
    <message>
        <source>Nothing: the register prints no logo.</source>
        <translation>Nulla: il registratore non stampa loghi.</translation>
    </message>
    <message>
        <source>Prints the lines about the company.</source>
        <translation>Stampa le righe dell&apos;azienda.</translation>
    </message>
    <message>
        <source>Prints the customer&apos;s delivery address, if printCustomer is true.</source>
        <translation>Stampa l&apos;indirizzo di consegna del cliente, se printCustomer è true.</translation>
    </message>
    <message>
        <source>Prints the customer&apos;s billing address, if printCustomer is true.</source>
        <translation>Stampa l&apos;indirizzo di fatturazione del cliente, se printCustomer è true.</translation>
    </message>
    <message>
        <source>Prints the customer&apos;s telephone number, if printCustomer is true.</source>
        <translation>Stampa il telefono del cliente, se printCustomer è true.</translation>
    </message>
    <message>
        <source>Prints the date of the order.</source>
        <translation>Stampa la data dell&apos;ordine.</translation>
    </message>
    <message>
        <source>Prints the time of the order.</source>
        <translation>Stampa l&apos;ora dell&apos;ordine.</translation>
    </message>
    <message>
        <source>Prints the table.</source>
        <translation>Stampa il tavolo.</translation>
    </message>
    <message>
        <source>Prints the customer&apos;s block; without it none of its lines.</source>
        <translation>Stampa il blocco del cliente; senza, nessuna delle sue righe.</translation>
    </message>
    <message>
        <source>Prints the customer&apos;s licence number, if printCustomer is true.</source>
        <translation>Stampa la partita IVA del cliente, se printCustomer è true.</translation>
    </message>
    <message>
        <source>Prints the customer&apos;s fiscal code, if printCustomer is true.</source>
        <translation>Stampa il codice fiscale del cliente, se printCustomer è true.</translation>
    </message>
    <message>
        <source>Prints the credit.</source>
        <translation>Stampa il credito.</translation>
    </message>
    <message>
        <source>Prints the waiter&apos;s name.</source>
        <translation>Stampa il nome del cameriere.</translation>
    </message>
    <message>
        <source>Prints the note.</source>
        <translation>Stampa la nota.</translation>
    </message>
    <message>
        <source>Nothing: no command opens the drawer.</source>
        <translation>Nulla: nessun comando apre il cassetto.</translation>
    </message>
    <message>
        <source>The empty lines at the top, if printGeometry is true.</source>
        <translation>Le righe vuote in alto, se printGeometry è true.</translation>
    </message>
    <message>
        <source>The characters to which a dish&apos;s name is cut on a fiscal receipt.</source>
        <translation>I caratteri a cui viene tagliato il nome di un piatto su uno scontrino fiscale.</translation>
    </message>
    <message>
        <source>the suite&apos;s programs decide</source>
        <translation>decidono i programmi della suite</translation>
    </message>
    <message>
        <source>The copies that the suite prints; the print program prints one.</source>
        <translation>Le copie che la suite stampa; il programma di stampa ne stampa una.</translation>
    </message>
    <message>
        <source>The language of the labels.</source>
        <translation>La lingua delle etichette.</translation>
    </message>
    <message>
        <source>The log of the suite&apos;s programs.</source>
        <translation>Il registro dei messaggi dei programmi della suite.</translation>
    </message>
    <message>
        <source>The database of the suite&apos;s programs.</source>
        <translation>Il database dei programmi della suite.</translation>
    </message>
    <message>
        <source>The suite&apos;s programs.</source>
        <translation>I programmi della suite.</translation>
    </message>
    <message>
        <source>Kitchen orders.</source>
        <translation>Comande.</translation>
    </message>
    <message>
        <source>Whole orders with prices.</source>
        <translation>Preconti.</translation>
    </message>
    <message>
        <source>Fiscal receipts.</source>
        <translation>Scontrini fiscali.</translation>
    </message>
    <message>
        <source>Receipts.</source>
        <translation>Ricevute.</translation>
    </message>
    <message>
        <source>Invoices.</source>
        <translation>Fatture.</translation>
    </message>
    <message>
        <source>Delivery notes.</source>
        <translation>Bolle di consegna.</translation>
    </message>
    <message>
        <source>Reports and statements of account.</source>
        <translation>Chiusure ed estratti conto.</translation>
    </message>
    <message>
        <source>Lists of dishes sold.</source>
        <translation>Elenchi dei piatti venduti.</translation>
    </message>
    <message>
        <source>a flag, true or false</source>
        <translation>un&apos;opzione, true o false</translation>
    </message>
    <message>
        <source>a whole number from %1 to %2</source>
        <translation>un numero intero da %1 a %2</translation>
    </message>
    <message>
        <source>one of %1</source>
        <translation>uno tra %1</translation>
    </message>
    <message>
        <source>a path</source>
        <translation>un percorso</translation>
    </message>
    <message>
        <source>a text</source>
        <translation>un testo</translation>
    </message>
    <message>
        <source>a secret text</source>
        <translation>un testo segreto</translation>
    </message>
    <message>
        <source>Is &quot;%1&quot; meant?</source>
        <translation>Si intende &quot;%1&quot;?</translation>
    </message>
    <message>
        <source>The setting &quot;%1&quot; stands outside every group, where it is never found.</source>
        <translation>L&apos;impostazione &quot;%1&quot; sta fuori da ogni gruppo, dove non viene mai trovata.</translation>
    </message>
    <message>
        <source>Only the first group at the top is read: nothing in &quot;%1&quot; is found.</source>
        <translation>Viene letto solo il primo dei gruppi più esterni: in &quot;%1&quot; non viene trovato nulla.</translation>
    </message>
    <message>
        <source>The first group is &quot;%1&quot; and not &quot;zelmora&quot;: no program finds a setting in this file.</source>
        <translation>Il primo gruppo è &quot;%1&quot; e non &quot;zelmora&quot;: nessun programma trova un&apos;impostazione in questo file.</translation>
    </message>
    <message>
        <source>The group &quot;%1&quot; holds nothing: it is as if it were not there.</source>
        <translation>Il gruppo &quot;%1&quot; non contiene nulla: è come se non ci fosse.</translation>
    </message>
    <message>
        <source>No program reads a setting &quot;%1&quot; here, outside the groups in &quot;zelmora&quot;.</source>
        <translation>Nessun programma legge qui un&apos;impostazione &quot;%1&quot;, fuori dai gruppi di &quot;zelmora&quot;.</translation>
    </message>
    <message>
        <source>No program reads &quot;%1&quot; here: it belongs in one of these groups: %2.</source>
        <translation>Nessun programma legge qui &quot;%1&quot;: va in uno di questi gruppi: %2.</translation>
    </message>
    <message>
        <source>The group &quot;%1&quot; stands twice: of each setting the first value that is not empty holds.</source>
        <translation>Il gruppo &quot;%1&quot; compare due volte: di ogni impostazione vale il primo valore non vuoto.</translation>
    </message>
    <message>
        <source>No program reads a group &quot;%1&quot; here: nothing in it is found.</source>
        <translation>Nessun programma legge qui un gruppo &quot;%1&quot;: ciò che contiene non viene trovato.</translation>
    </message>
    <message>
        <source>No program reads a setting &quot;%1&quot; here.</source>
        <translation>Nessun programma legge qui un&apos;impostazione &quot;%1&quot;.</translation>
    </message>
    <message>
        <source>The group &quot;%1&quot; stands inside &quot;%2&quot;, where it is not found. Is &quot;};&quot; missing before it?</source>
        <translation>Il gruppo &quot;%1&quot; sta dentro &quot;%2&quot;, dove non viene trovato. Manca &quot;};&quot; prima?</translation>
    </message>
    <message>
        <source>The setting &quot;%1&quot; stands twice in its group: this later value holds.</source>
        <translation>L&apos;impostazione &quot;%1&quot; compare due volte nel suo gruppo: vale questo valore, l&apos;ultimo.</translation>
    </message>
    <message>
        <source>The XML breaks off here: no program finds a setting in this file.</source>
        <translation>L&apos;XML si interrompe qui: nessun programma trova un&apos;impostazione in questo file.</translation>
    </message>
    <message>
        <source>&quot;};&quot; is missing here: the file ends inside the group &quot;%1&quot;. Is it cut off?</source>
        <translation>Qui manca &quot;};&quot;: il file finisce dentro il gruppo &quot;%1&quot;. È troncato?</translation>
    </message>
    <message>
        <source>A semicolon is missing here: the &quot;}&quot; that follows is skipped, and ends no group.</source>
        <translation>Qui manca un punto e virgola: la &quot;}&quot; che segue viene saltata, e non chiude nessun gruppo.</translation>
    </message>
    <message>
        <source>A semicolon is missing here: what follows is skipped up to the next one, and &quot;%1&quot; is not found.</source>
        <translation>Qui manca un punto e virgola: ciò che segue viene saltato fino al prossimo, e &quot;%1&quot; non viene trovato.</translation>
    </message>
    <message>
        <source>The text between &quot;:&quot; and &quot;{&quot; is skipped: %1</source>
        <translation>Il testo tra &quot;:&quot; e &quot;{&quot; viene saltato: %1</translation>
    </message>
    <message>
        <source>The text between &quot;}&quot; and &quot;;&quot; is skipped: %1</source>
        <translation>Il testo tra &quot;}&quot; e &quot;;&quot; viene saltato: %1</translation>
    </message>
    <message>
        <source>Groups nested this deep are not read, nor what follows them: %1</source>
        <translation>I gruppi annidati così a fondo non vengono letti, né ciò che li segue: %1</translation>
    </message>
    <message>
        <source>The &quot;}&quot; before this text is one too many, and ends the settings: nothing of what follows is found: %1</source>
        <translation>La &quot;}&quot; prima di questo testo è di troppo e chiude le impostazioni: nulla di ciò che segue viene trovato: %1</translation>
    </message>
    <message>
        <source>The text is no setting and no group, and is skipped: %1</source>
        <translation>Il testo non è un&apos;impostazione né un gruppo, e viene saltato: %1</translation>
    </message>
    <message>
        <source>Settings are attributes: the text between the tags is skipped: %1</source>
        <translation>Le impostazioni sono attributi: il testo tra i tag viene saltato: %1</translation>
    </message>
    <message>
        <source>A semicolon is missing here: the file ends in this value. Is it cut off?</source>
        <translation>Qui manca un punto e virgola: il file finisce dentro questo valore. È troncato?</translation>
    </message>
    <message>
        <source>A semicolon is missing here: the value goes on over the end of the group.</source>
        <translation>Qui manca un punto e virgola: il valore continua oltre la fine del gruppo.</translation>
    </message>
    <message>
        <source>A semicolon is missing here: the value goes on over &quot;%1&quot;, which is not found.</source>
        <translation>Qui manca un punto e virgola: il valore continua oltre &quot;%1&quot;, che non viene trovato.</translation>
    </message>
    <message>
        <source>A &quot;:&quot; is missing before the &quot;{&quot;: no group begins here, and &quot;%1&quot; is not found. Write it between the group&apos;s name and the &quot;{&quot;.</source>
        <translation>Manca &quot;:&quot; prima di &quot;{&quot;: qui non comincia alcun gruppo e &quot;%1&quot; non viene trovato. Va scritto fra il nome del gruppo e &quot;{&quot;.</translation>
    </message>
    <message>
        <source>There are no comments: the text is taken for a name. Remove it.</source>
        <translation>I commenti non esistono: il testo viene preso per un nome. Va tolto.</translation>
    </message>
    <message>
        <source>There are no comments: the text becomes part of the name, and &quot;%1&quot; is not found. Remove it.</source>
        <translation>I commenti non esistono: il testo diventa parte del nome, e &quot;%1&quot; non viene trovato. Va tolto.</translation>
    </message>
    <message>
        <source>The translation %1 cannot be loaded: the labels stay English.</source>
        <translation>La traduzione %1 non può essere caricata: le etichette restano in inglese.</translation>
    </message>
    <message>
        <source>The translation %1 is found only by programs that are started in the right folder: write the whole path.</source>
        <translation>La traduzione %1 viene trovata solo dai programmi avviati nella cartella giusta: scrivere il percorso completo.</translation>
    </message>
    <message>
        <source>Other users of this machine may read the password: take the right to read the file from them (chmod 600).</source>
        <translation>Altri utenti di questa macchina possono leggere la password: togliere loro il diritto di leggere il file (chmod 600).</translation>
    </message>
    <message>
        <source>The columns take the whole paper (%1): no description is printed.</source>
        <translation>Le colonne occupano tutta la carta (%1): non viene stampata nessuna descrizione.</translation>
    </message>
    <message>
        <source>The columns are wider than the paper (%1): the lines grow past it.</source>
        <translation>Le colonne sono più larghe della carta (%1): le righe la superano.</translation>
    </message>
    <message>
        <source>%1 = %2 of %3 characters</source>
        <translation>%1 = %2 caratteri su %3</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has no effect in &quot;%2&quot;, but in: %3.</source>
        <translation>&quot;%1&quot; non ha effetto in &quot;%2&quot;, ma in: %3.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; reads as false: %2 is &quot;true&quot; or &quot;false&quot;, in just these letters.</source>
        <translation>&quot;%1&quot; vale false: %2 è &quot;true&quot; o &quot;false&quot;, scritto proprio così.</translation>
    </message>
    <message>
        <source>%1 is out of range, and is taken all the same: %2 is %3.</source>
        <translation>%1 è fuori dai limiti e vale lo stesso: %2 è %3.</translation>
    </message>
    <message>
        <source>%1 is out of range, and is taken as %2: %3 is %4.</source>
        <translation>%1 è fuori dai limiti e vale %2: %3 è %4.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no whole number, and counts as %2: write digits alone.</source>
        <translation>&quot;%1&quot; non è un numero intero e vale %2: scrivere solo cifre.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; counts as absent (%2): %3 is %4.</source>
        <translation>&quot;%1&quot; vale come assente (%2): %3 è %4.</translation>
    </message>
    <message>
        <source>The paper is wider than the register&apos;s %1 characters, within which lines are centred.</source>
        <translation>La carta è più larga dei %1 caratteri del registratore, entro i quali le righe vengono centrate.</translation>
    </message>
    <message>
        <source>The programs read &quot;?&quot; for &quot;%1&quot; (U+%2): it is beyond the Western European characters.</source>
        <translation>Di &quot;%1&quot; (U+%2) i programmi leggono &quot;?&quot;: non è un carattere dell&apos;Europa occidentale.</translation>
    </message>
    <message>
        <source>The file %1 does not look like the settings of the suite: none of its outermost groups is named zelmora. Nothing was written.</source>
        <translation>Il file %1 non sembra contenere le impostazioni della suite: nessuno dei gruppi più esterni si chiama zelmora. Non è stato scritto nulla.</translation>
    </message>
    <message>
        <source>Nothing may stand before the first group of an XML file, no declaration and no comment. Take it out of the file %1 first. Nothing was written.</source>
        <translation>Prima del primo gruppo di un file XML non può esserci nulla, né dichiarazioni né commenti. Toglierlo prima dal file %1. Non è stato scritto nulla.</translation>
    </message>
    <message>
        <source>Standard output cannot be written.</source>
        <translation>L&apos;uscita standard non può essere scritta.</translation>
    </message>
    <message>
        <source> (y/N)</source>
        <translation> (s/N)</translation>
    </message>
    <message>
        <source>y</source>
        <comment>the first letter of yes</comment>
        <translation>s</translation>
    </message>
    <message>
        <source>There are: %1.</source>
        <translation>Ci sono: %1.</translation>
    </message>
    <message>
        <source>The file cannot be read: %1</source>
        <translation>Il file non può essere letto: %1</translation>
    </message>
    <message>
        <source>There is no group &quot;%1&quot;.</source>
        <translation>Non c&apos;è un gruppo &quot;%1&quot;.</translation>
    </message>
    <message>
        <source>There is no print method &quot;%1&quot;.</source>
        <translation>Non c&apos;è un metodo di stampa &quot;%1&quot;.</translation>
    </message>
    <message>
        <source>No setting changes what a document of this method prints.</source>
        <translation>Nessuna impostazione cambia ciò che stampa un documento di questo metodo.</translation>
    </message>
    <message>
        <source>%1 is not set.</source>
        <translation>%1 non è impostato.</translation>
    </message>
    <message>
        <source>No program reads %1.</source>
        <translation>Nessun programma legge %1.</translation>
    </message>
    <message>
        <source>No program reads %1. A key is whole, such as zelmora.receiptdoc.paperWidth.</source>
        <translation>Nessun programma legge %1. Una chiave va scritta per intero, come zelmora.receiptdoc.paperWidth.</translation>
    </message>
    <message>
        <source>No program reads %1. &quot;zelmora-config list&quot; shows what is read.</source>
        <translation>Nessun programma legge %1. &quot;zelmora-config list&quot; mostra ciò che viene letto.</translation>
    </message>
    <message>
        <source>%1 is %2, and &quot;%3&quot; is none.</source>
        <translation>%1 è %2, e &quot;%3&quot; non lo è.</translation>
    </message>
    <message>
        <source>%1 cannot be kept in the file: no program would find a setting of that name.</source>
        <translation>%1 non può stare nel file: nessun programma troverebbe un&apos;impostazione con questo nome.</translation>
    </message>
    <message>
        <source>The value of %1 cannot be kept in the file: it may hold no semicolon, no quotation mark and no character that Western European languages lack.</source>
        <translation>Il valore di %1 non può stare nel file: non può contenere punti e virgola, virgolette né caratteri estranei alle lingue dell&apos;Europa occidentale.</translation>
    </message>
    <message>
        <source>The folder %1 cannot be made: %2</source>
        <translation>La cartella %1 non può essere creata: %2</translation>
    </message>
    <message>
        <source>Save all the same?</source>
        <translation>Salvare comunque?</translation>
    </message>
    <message>
        <source>Nothing was changed. With --force that is dropped.</source>
        <translation>Non è stato cambiato nulla. Con --force quanto sopra va perso.</translation>
    </message>
    <message>
        <source>There is a file %1 already, and it stays as it is.</source>
        <translation>Il file %1 esiste già e resta com&apos;è.</translation>
    </message>
    <message>
        <source>%1 would not be found: the first group of the file is not &quot;%2&quot;.</source>
        <translation>%1 non verrebbe trovato: il primo gruppo del file non è &quot;%2&quot;.</translation>
    </message>
    <message>
        <source>The file %1 was made.</source>
        <translation>Il file %1 è stato creato.</translation>
    </message>
    <message>
        <source>%1 and %2 have the same form. The name of one of them must end in .xml.</source>
        <translation>%1 e %2 hanno la stessa forma. Il nome di uno dei due deve finire in .xml.</translation>
    </message>
    <message>
        <source>The file %1 could not hold this, and is not made:</source>
        <translation>Il file %1 non potrebbe contenere questo, e non viene creato:</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has no &quot;%2&quot;: its place on the paper stays empty.</source>
        <translation>&quot;%1&quot; non ha &quot;%2&quot;: il suo posto sulla carta resta vuoto.</translation>
    </message>
    <message>
        <source>Nothing declares &quot;&amp;%1;&quot;: nothing prints in its place. An &quot;&amp;&quot; is written &amp;amp;.</source>
        <translation>Nulla dichiara &quot;&amp;%1;&quot;: al suo posto non viene stampato nulla. Una &quot;&amp;&quot; si scrive &amp;amp;.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; stands before &quot;method&quot;: it does not print.</source>
        <translation>&quot;%1&quot; precede &quot;method&quot;: non viene stampato.</translation>
    </message>
    <message>
        <source>A second &quot;method&quot;: the document is opened twice and closed once. Make a job of each.</source>
        <translation>Un secondo &quot;method&quot;: il documento viene aperto due volte e chiuso una. Fare un lavoro per ciascuno.</translation>
    </message>
    <message>
        <source>There is no settings file %1: the job is checked as it prints without one. &quot;zelmora-config new&quot; makes one.</source>
        <translation>Il file di impostazioni %1 non c&apos;è: il lavoro viene controllato così come viene stampato senza. &quot;zelmora-config new&quot; ne crea uno.</translation>
    </message>
    <message>
        <source>%1 prints nothing, whatever the job says.</source>
        <translation>%1 non stampa nulla, qualunque cosa dica il lavoro di stampa.</translation>
    </message>
    <message>
        <source>paperWidth is %1, and the register has %2 characters in a line: longer lines may not fit.</source>
        <translation>paperWidth è %1, e il registratore ha %2 caratteri per riga: righe più lunghe possono non starci.</translation>
    </message>
    <message>
        <source>it stands around &quot;method&quot;</source>
        <translation>racchiude &quot;method&quot;</translation>
    </message>
    <message>
        <source>there is no print method of its name</source>
        <translation>nessun metodo di stampa ha questo nome</translation>
    </message>
    <message>
        <source>The job has ended with its outermost element: nothing may stand behind it.</source>
        <translation>Il lavoro è finito con il suo elemento più esterno: dopo non può esserci nulla.</translation>
    </message>
    <message>
        <source>it stands before &quot;method&quot;</source>
        <translation>precede &quot;method&quot;</translation>
    </message>
    <message>
        <source>Nothing is printed.</source>
        <translation>Non viene stampato nulla.</translation>
    </message>
    <message>
        <source>Lines of the script until here: %1; the document is not closed.</source>
        <translation>Righe di comandi fin qui: %1; il documento non viene chiuso.</translation>
    </message>
    <message>
        <source>No print method reads an element &quot;%1&quot;: it does not print.</source>
        <translation>Nessun metodo di stampa legge un elemento &quot;%1&quot;: non viene stampato.</translation>
    </message>
    <message>
        <source>%1 does not read &quot;%2&quot;: it does not print. These read it: %3.</source>
        <translation>%1 non legge &quot;%2&quot;: non viene stampato. Lo leggono: %3.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; stands twice in &quot;%2&quot;, which XML forbids: it prints twice here, and other programs reject the job.</source>
        <translation>&quot;%1&quot; compare due volte in &quot;%2&quot;, cosa che l&apos;XML vieta: qui viene stampato due volte, e altri programmi rifiutano il lavoro.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; stands twice in &quot;%2&quot;: the second one does not print.</source>
        <translation>&quot;%1&quot; compare due volte in &quot;%2&quot;: il secondo non viene stampato.</translation>
    </message>
    <message>
        <source>No print method reads an attribute &quot;%1&quot; of &quot;%2&quot;: it does not print.</source>
        <translation>Nessun metodo di stampa legge un attributo &quot;%1&quot; di &quot;%2&quot;: non viene stampato.</translation>
    </message>
    <message>
        <source>%1 does not read &quot;%2&quot; of &quot;%3&quot;: it does not print. These read it: %4.</source>
        <translation>%1 non legge &quot;%2&quot; di &quot;%3&quot;: non viene stampato. Lo leggono: %4.</translation>
    </message>
    <message>
        <source>There is no print method &quot;%1&quot;: printing stops here.</source>
        <translation>Non c&apos;è un metodo di stampa &quot;%1&quot;: la stampa si ferma qui.</translation>
    </message>
    <message>
        <source>&quot;method&quot; has no &quot;name&quot;: printing stops here.</source>
        <translation>&quot;method&quot; non ha &quot;name&quot;: la stampa si ferma qui.</translation>
    </message>
    <message>
        <source>Number times price makes %1, and the row says %2.</source>
        <translation>Quantità per prezzo fa %1, e la riga dice %2.</translation>
    </message>
    <message>
        <source>Taxable and tax make %1, and the total says %2.</source>
        <translation>Imponibile e imposta fanno %1, e il totale dice %2.</translation>
    </message>
    <message>
        <source>The rate of the taxable makes a tax of %1, and the tax says %2.</source>
        <translation>L&apos;aliquota sull&apos;imponibile dà un&apos;imposta di %1, e l&apos;imposta dice %2.</translation>
    </message>
    <message>
        <source>The payments make %1, and the total says %2.</source>
        <translation>I pagamenti fanno %1, e il totale dice %2.</translation>
    </message>
    <message>
        <source>The cancelled documents are %1, and the number says %2.</source>
        <translation>I documenti annullati sono %1, e il numero dice %2.</translation>
    </message>
    <message>
        <source>The rows add up to %1, and the total says %2.</source>
        <translation>La somma delle righe è %1, e il totale dice %2.</translation>
    </message>
    <message>
        <source>%1 is not paid, and the total is %2 only.</source>
        <translation>Risulta non pagato %1, e il totale è solo %2.</translation>
    </message>
    <message>
        <source>The apostrophe ends the register&apos;s text early: write ` in its place. The command becomes: %1</source>
        <translation>L&apos;apostrofo chiude in anticipo il testo per il registratore: scrivere ` al suo posto. Il comando diventa: %1</translation>
    </message>
    <message>
        <source>The text has a %1, which breaks the command: write a blank in its place.</source>
        <translation>Nel testo c&apos;è un carattere che spezza il comando (%1): scrivere uno spazio al suo posto.</translation>
    </message>
    <message>
        <source>The script cannot hold &quot;%1&quot;, %2: &quot;?&quot; prints in its place.</source>
        <translation>I comandi del registratore non possono contenere &quot;%1&quot;, %2: al suo posto viene stampato &quot;?&quot;.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; would print.</source>
        <translation>Verrebbe stampato &quot;%1&quot;.</translation>
    </message>
    <message>
        <source>TOTALE prints as SOMMA: the register keeps the word for itself.</source>
        <translation>TOTALE viene stampato come SOMMA: il registratore tiene quella parola per sé.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is cut to &quot;%2&quot;.</source>
        <translation>&quot;%1&quot; viene tagliato a &quot;%2&quot;.</translation>
    </message>
    <message>
        <source>The line has %1 characters, and the paper %2. It is always so long.</source>
        <translation>La riga ha %1 caratteri, e la carta %2. È sempre così lunga.</translation>
    </message>
    <message>
        <source>The line has %1 characters, and the paper %2: make the text shorter, or the columns narrower.</source>
        <translation>La riga ha %1 caratteri, e la carta %2: accorciare il testo o stringere le colonne.</translation>
    </message>
    <message>
        <source>A dish whose name begins with &quot;=&quot; does not print here, nor does its price.</source>
        <translation>Un piatto il cui nome comincia con &quot;=&quot; qui non viene stampato, e nemmeno il suo prezzo.</translation>
    </message>
    <message>
        <source>The payments of &quot;total&quot; reach no command: the register closes the receipt by itself.</source>
        <translation>I pagamenti di &quot;total&quot; non arrivano in nessun comando: il registratore chiude lo scontrino da sé.</translation>
    </message>
    <message>
        <source>The lines of &quot;%1&quot; do not print, the printer&apos;s name does: %2.</source>
        <translation>Le righe di &quot;%1&quot; non vengono stampate, il nome della stampante sì: %2.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; does not print: %2.</source>
        <translation>&quot;%1&quot; non viene stampato: %2.</translation>
    </message>
    <message>
        <source>&quot;%2&quot; of &quot;%1&quot; is empty: so is its place on the paper.</source>
        <translation>&quot;%2&quot; di &quot;%1&quot; è vuoto: lo è anche il suo posto sulla carta.</translation>
    </message>
    <message>
        <source>The last row of &quot;%1&quot; has %2 of %3 attributes: the rest of it stays empty.</source>
        <translation>L&apos;ultima riga di &quot;%1&quot; ha %2 attributi su %3: il resto della riga rimane vuoto.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no date: it prints as it is.</source>
        <translation>&quot;%1&quot; non è una data: viene stampato così com&apos;è.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no number with a point: the variant prints with a wrong sign or with the text.</source>
        <translation>&quot;%1&quot; non è un numero con il punto: la variante viene stampata con un segno sbagliato o con il testo.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no number with a point: the register may take it for another field.</source>
        <translation>&quot;%1&quot; non è un numero con il punto: il registratore può prenderlo per un altro campo.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no price: the register gets it as it is and may refuse the sale.</source>
        <translation>&quot;%1&quot; non è un prezzo: il registratore lo riceve così com&apos;è e può rifiutare la vendita.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no number: it prints as it is, with &quot;%&quot; behind it.</source>
        <translation>&quot;%1&quot; non è un numero: viene stampato così com&apos;è, seguito da &quot;%&quot;.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no number: it prints as it is.</source>
        <translation>&quot;%1&quot; non è un numero: viene stampato così com&apos;è.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no price: the discount becomes a sale.</source>
        <translation>&quot;%1&quot; non è un prezzo: lo sconto diventa una vendita.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no price, and the discount may be another than is meant.</source>
        <translation>&quot;%1&quot; non è un prezzo, e lo sconto può essere diverso da quello voluto.</translation>
    </message>
    <message>
        <source>Write a sign, digits and one comma or point.</source>
        <translation>Scrivere un segno, cifre e una sola virgola o un solo punto.</translation>
    </message>
    <message>
        <source>The address ends with its first empty field: &quot;%1&quot; does not print.</source>
        <translation>L&apos;indirizzo finisce al primo campo vuoto: &quot;%1&quot; non viene stampato.</translation>
    </message>
    <message>
        <source>a dish whose name begins with &quot;=&quot;</source>
        <translation>un piatto il cui nome comincia con &quot;=&quot;</translation>
    </message>
    <message>
        <source>the register closes the receipt by itself</source>
        <translation>il registratore chiude lo scontrino da sé</translation>
    </message>
    <message>
        <source>it is only kept for the next &quot;headers&quot;</source>
        <translation>viene solo tenuto per il prossimo &quot;headers&quot;</translation>
    </message>
    <message>
        <source>the top margin is 0</source>
        <translation>il margine superiore è 0</translation>
    </message>
    <message>
        <source>the register has no command for it</source>
        <translation>il registratore non ha un comando per questo</translation>
    </message>
    <message>
        <source>no print method reads it</source>
        <translation>nessun metodo di stampa lo legge</translation>
    </message>
    <message>
        <source>%1 prints nothing</source>
        <translation>%1 non stampa nulla</translation>
    </message>
    <message>
        <source>%1 does not read it</source>
        <translation>%1 non lo legge</translation>
    </message>
    <message>
        <source>%1 is not set to true</source>
        <translation>%1 non è impostato a true</translation>
    </message>
    <message>
        <source>%1 is &quot;%2&quot; in %3:%4</source>
        <translation>%1 è &quot;%2&quot; in %3:%4</translation>
    </message>
    <message>
        <source>The XML declaration must be the first thing in the file and look like &lt;?xml version=&quot;1.0&quot; encoding=&quot;UTF-8&quot;?&gt;.</source>
        <translation>La dichiarazione XML deve essere la prima cosa nel file e avere la forma &lt;?xml version=&quot;1.0&quot; encoding=&quot;UTF-8&quot;?&gt;.</translation>
    </message>
    <message>
        <source>The document type declaration is not as it must be.</source>
        <translation>La dichiarazione del tipo di documento non è corretta.</translation>
    </message>
    <message>
        <source>The reference that begins with &quot;&amp;&quot; is not as it must be. An &quot;&amp;&quot; by itself is written &amp;amp; with the semicolon.</source>
        <translation>Il riferimento che comincia con &quot;&amp;&quot; non è corretto. Una &quot;&amp;&quot; da sola si scrive &amp;amp; con il punto e virgola.</translation>
    </message>
    <message>
        <source>The file ends in the middle: something is still open.</source>
        <translation>Il file finisce a metà: qualcosa è ancora aperto.</translation>
    </message>
    <message>
        <source>The end tag does not belong to the element that is open.</source>
        <translation>Il tag di chiusura non è quello dell&apos;elemento aperto.</translation>
    </message>
    <message>
        <source>The tag is not as it must be: names, &quot;=&quot; and values in quotes.</source>
        <translation>Il tag non è corretto: servono nomi, &quot;=&quot; e valori tra virgolette.</translation>
    </message>
    <message>
        <source>The character must not stand here. Values stand in quotes; inside them &quot;&lt;&quot; is written &amp;lt;, a quote &amp;quot; or &amp;apos;.</source>
        <translation>Questo carattere qui non può stare. I valori stanno tra virgolette; al loro interno &quot;&lt;&quot; si scrive &amp;lt;, le virgolette &amp;quot; o &amp;apos;.</translation>
    </message>
    <message>
        <source>A name is due here. An &quot;&amp;&quot; is written &amp;amp; and a &quot;&lt;&quot; is written &amp;lt;.</source>
        <translation>Qui serve un nome. Una &quot;&amp;&quot; si scrive &amp;amp; e un &quot;&lt;&quot; si scrive &amp;lt;.</translation>
    </message>
    <message>
        <source>The comment is not as it must be: there is no &quot;--&quot; inside one.</source>
        <translation>Il commento non è corretto: al suo interno non può esserci &quot;--&quot;.</translation>
    </message>
    <message>
        <source>This must not stand here.</source>
        <translation>Questo qui non può stare.</translation>
    </message>
    <message>
        <source>Elements stand more than 1,000 deep in each other.</source>
        <translation>Gli elementi sono annidati per più di 1.000 livelli.</translation>
    </message>
    <message>
        <source>The document type declaration is longer than the print program reads.</source>
        <translation>La dichiarazione del tipo di documento è più lunga di quanto il programma di stampa legge.</translation>
    </message>
    <message>
        <source>The entity stands for more than 1,000 characters, or for one that is declared later or never.</source>
        <translation>L&apos;entità sta per più di 1.000 caratteri, o per un&apos;altra che è dichiarata dopo o mai.</translation>
    </message>
    <message>
        <source>The job declares entities and has more &quot;&amp;&quot; than the print program reads.</source>
        <translation>Il lavoro dichiara entità e ha più &quot;&amp;&quot; di quante il programma di stampa ne legge.</translation>
    </message>
    <message>
        <source>The XML is not as it must be (%1).</source>
        <translation>L&apos;XML non è corretto (%1).</translation>
    </message>
    <message>
        <source>Sho&amp;w...</source>
        <translation>M&amp;ostra...</translation>
    </message>
    <message>
        <source>In this file:</source>
        <translation>In questo file:</translation>
    </message>
    <message>
        <source>The value of %1 cannot be kept in XML: it may hold no &quot;&lt;&quot;, no &quot;&amp;&quot;, no quotation mark and no character that Western European languages lack.</source>
        <translation>Il valore di %1 non può stare in un file XML: non può contenere &quot;&lt;&quot;, &quot;&amp;&quot;, virgolette né caratteri estranei alle lingue dell&apos;Europa occidentale.</translation>
    </message>
    <message>
        <source>nothing: %1</source>
        <translation>nulla: %1</translation>
    </message>
    <message>
        <source>The file is empty.</source>
        <translation>Il file è vuoto.</translation>
    </message>
    <message>
        <source>The file %1 is empty.</source>
        <translation>Il file %1 è vuoto.</translation>
    </message>
    <message>
        <source>The file %1 is a script: a trace is of jobs.</source>
        <translation>Il file %1 è uno script: una traccia si fa dei lavori.</translation>
    </message>
    <message>
        <source>The line is no command of the register.</source>
        <translation>La riga non è un comando del registratore.</translation>
    </message>
    <message>
        <source>The command needs an open document, and there is none of its kind.</source>
        <translation>Il comando vuole un documento aperto, e non ce n&apos;è uno del suo tipo.</translation>
    </message>
    <message>
        <source>The script ends without the document&apos;s closing command.</source>
        <translation>Lo script finisce senza il comando che chiude il documento.</translation>
    </message>
    <message>
        <source>A document is opened while another one is open.</source>
        <translation>Si apre un documento mentre un altro è aperto.</translation>
    </message>
    <message>
        <source>A fiscal receipt sells nothing.</source>
        <translation>Uno scontrino fiscale non vende nulla.</translation>
    </message>
    <message>
        <source>The payments of a fiscal receipt are less than its sum.</source>
        <translation>I pagamenti di uno scontrino fiscale sono meno della sua somma.</translation>
    </message>
    <message>
        <source>Bytes are no characters in the script&apos;s encoding.</source>
        <translation>Dei byte non sono caratteri nella codifica dello script.</translation>
    </message>
    <message>
        <source>An empty line is no command of the register.</source>
        <translation>Una riga vuota non è un comando del registratore.</translation>
    </message>
    <message>
        <source>The sale has no &quot;%1&quot; in its place: %2, %3, %4 and %5 follow each other in a sale.</source>
        <translation>La vendita non ha &quot;%1&quot; al suo posto: in una vendita si seguono %2, %3, %4 e %5.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no command of the register.</source>
        <translation>&quot;%1&quot; non è un comando del registratore.</translation>
    </message>
    <message>
        <source>A byte-order mark stands before the command, which the register takes for a part of it: save the file without it.</source>
        <translation>Prima del comando c&apos;è un BOM, che il registratore prende per una sua parte: salvare il file senza.</translation>
    </message>
    <message>
        <source>The text has no closing quote: the command ends with &apos;.</source>
        <translation>Il testo non ha l&apos;apice di chiusura: il comando finisce con &apos;.</translation>
    </message>
    <message>
        <source>No document is open for this line: &quot;%1&quot; must stand before it.</source>
        <translation>Nessun documento è aperto per questa riga: prima ci vuole &quot;%1&quot;.</translation>
    </message>
    <message>
        <source>No document is open that &quot;%1&quot; could close: its opening command is missing, or this one is too much.</source>
        <translation>Nessun documento è aperto che &quot;%1&quot; possa chiudere: manca il comando che lo apre, o questo è di troppo.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; must stand right before &quot;%2&quot;.</source>
        <translation>&quot;%1&quot; deve stare subito prima di &quot;%2&quot;.</translation>
    </message>
    <message>
        <source>No fiscal receipt is open for this command: &quot;%1&quot; and &quot;%2&quot; must stand before it.</source>
        <translation>Nessuno scontrino fiscale è aperto per questo comando: prima ci vogliono &quot;%1&quot; e &quot;%2&quot;.</translation>
    </message>
    <message>
        <source>The document that begins here is not closed: the script ends without its &quot;%1&quot;.</source>
        <translation>Il documento che comincia qui non è chiuso: lo script finisce senza il suo &quot;%1&quot;.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; opens a document while another one is open: that one must be closed first.</source>
        <translation>&quot;%1&quot; apre un documento mentre un altro è aperto: prima va chiuso quello.</translation>
    </message>
    <message>
        <source>The apostrophe ends the register&apos;s text early: write ` in its place. The text becomes: %1</source>
        <translation>L&apos;apostrofo chiude in anticipo il testo per il registratore: scrivere ` al suo posto. Il testo diventa: %1</translation>
    </message>
    <message>
        <source>The text ends at this quote, and the command does not end with one: &quot;%1&quot; stands behind the last quote.</source>
        <translation>Il testo finisce a questo apice, e il comando non finisce con un apice: dopo l&apos;ultimo si trova &quot;%1&quot;.</translation>
    </message>
    <message>
        <source>The fiscal receipt that begins here sells nothing.</source>
        <translation>Lo scontrino fiscale che comincia qui non vende nulla.</translation>
    </message>
    <message>
        <source>The payments are less than the sum of the receipt: %1 is missing.</source>
        <translation>I pagamenti sono meno della somma dello scontrino: mancano %1.</translation>
    </message>
    <message>
        <source>In the encoding %1 these bytes are no characters: %2. Was the script written in another one?</source>
        <translation>Nella codifica %1 questi byte non sono caratteri: %2. Lo script è stato scritto in un&apos;altra?</translation>
    </message>
    <message>
        <source>CASH</source>
        <translation>CONTANTI</translation>
    </message>
    <message>
        <source>CHEQUE</source>
        <translation>ASSEGNO</translation>
    </message>
    <message>
        <source>CREDIT CARD</source>
        <translation>CARTA DI CREDITO</translation>
    </message>
    <message>
        <source>MEAL TICKET</source>
        <translation>BUONO PASTO</translation>
    </message>
    <message>
        <source>%1% of %2</source>
        <translation>%1% di %2</translation>
    </message>
    <message>
        <source>TOTAL (incomplete)</source>
        <translation>TOTALE (incompleto)</translation>
    </message>
    <message>
        <source>MISSING</source>
        <translation>MANCANO</translation>
    </message>
    <message>
        <source>CHANGE</source>
        <translation>RESTO</translation>
    </message>
    <message>
        <source>This is our reading of the script: the register arranges a receipt in its own way.</source>
        <translation>Questa è la nostra lettura dello script: il registratore dispone uno scontrino a modo suo.</translation>
    </message>
    <message>
        <source>The picture would have a side of more than %1 pixels. A PDF breaks into pages.</source>
        <translation>L&apos;immagine avrebbe un lato di più di %1 pixel. Un PDF si divide in pagine.</translation>
    </message>
    <message>
        <source>There is not enough memory for the picture. A PDF breaks into pages.</source>
        <translation>La memoria non basta per l&apos;immagine. Un PDF si divide in pagine.</translation>
    </message>
    <message>
        <source>Scripts compared: %1. Different on paper: %2. Different without a trace on paper: %3.</source>
        <translation>Script confrontati: %1. Diversi sulla carta: %2. Diversi senza traccia sulla carta: %3.</translation>
    </message>
    <message>
        <source>today</source>
        <translation>oggi</translation>
    </message>
    <message>
        <source>Jobs rehearsed: %1. Different on paper: %2. Different without a trace on paper: %3.</source>
        <translation>Lavori di stampa provati: %1. Diversi sulla carta: %2. Diversi senza traccia sulla carta: %3.</translation>
    </message>
    <message>
        <source>%1 (script)</source>
        <translation>%1 (script)</translation>
    </message>
    <message>
        <source>There is no program zelmora-print: neither beside this program, nor in ../bin from there, nor on PATH.</source>
        <translation>Il programma zelmora-print non c&apos;è: né accanto a questo programma, né in ../bin da lì, né in PATH.</translation>
    </message>
    <message>
        <source>No folder for the settings can be made: %1</source>
        <translation>Non si può creare una cartella per le impostazioni: %1</translation>
    </message>
    <message>
        <source>There is no memory for the job and its script.</source>
        <translation>Non c&apos;è memoria per il lavoro di stampa e il suo script.</translation>
    </message>
    <message>
        <source>The print program was ended after %1 seconds.</source>
        <translation>Il programma di stampa è stato chiuso dopo %1 secondi.</translation>
    </message>
    <message>
        <source>The print program was ended by a signal.</source>
        <translation>Il programma di stampa è stato chiuso da un segnale.</translation>
    </message>
    <message>
        <source>The script is longer than %1 MB.</source>
        <translation>Lo script supera i %1 MB.</translation>
    </message>
    <message>
        <source>The print program ended with status %1.</source>
        <translation>Il programma di stampa è terminato con lo stato %1.</translation>
    </message>
    <message>
        <source>The print program cannot be started: %1</source>
        <translation>Il programma di stampa non può essere avviato: %1</translation>
    </message>
    <message>
        <source>Full order</source>
        <translation>Preconto</translation>
    </message>
    <message>
        <source>Summary order</source>
        <translation>Comanda riepilogativa</translation>
    </message>
    <message>
        <source>Summary receipt</source>
        <translation>Ricevuta riepilogativa</translation>
    </message>
    <message>
        <source>Summary invoice</source>
        <translation>Fattura riepilogativa</translation>
    </message>
    <message>
        <source>Summary fiscal receipt</source>
        <translation>Scontrino fiscale riepilogativo</translation>
    </message>
    <message>
        <source>Daily report</source>
        <translation>Chiusura di giornata</translation>
    </message>
    <message>
        <source>Sold items</source>
        <translation>Venduto</translation>
    </message>
    <message>
        <source>Statement of account</source>
        <translation>Estratto conto</translation>
    </message>
    <message>
        <source>The print program reads the brace form alone, which cannot hold this of the file %1:</source>
        <translation>Il programma di stampa legge solo la forma con le graffe, che non può contenere questo del file %1:</translation>
    </message>
    <message>
        <source>All documents</source>
        <translation>Tutti i documenti</translation>
    </message>
    <message>
        <source>The file %1 is no job: a job is XML, and begins with &quot;&lt;&quot;.</source>
        <translation>Il file %1 non è un lavoro di stampa: un lavoro è XML e comincia con &quot;&lt;&quot;.</translation>
    </message>
    <message>
        <source>Nothing of this job is printed. zelmora-check says why.</source>
        <translation>Di questo lavoro non viene stampato nulla. zelmora-check dice perché.</translation>
    </message>
    <message>
        <source>The script has no closing command, since the job breaks off. zelmora-check says where.</source>
        <translation>Lo script non ha il comando di chiusura, perché il lavoro si interrompe. zelmora-check dice dove.</translation>
    </message>
    <message>
        <source>About the paper</source>
        <translation>Avviso sulla carta</translation>
    </message>
    <message>
        <source>Save the paper</source>
        <translation>Salva la carta</translation>
    </message>
    <message>
        <source>The paper cannot be printed.</source>
        <translation>La carta non può essere stampata.</translation>
    </message>
    <message>
        <source>Document</source>
        <translation>Documento</translation>
    </message>
    <message>
        <source>Paper</source>
        <translation>Carta</translation>
    </message>
    <message>
        <source>Here stands the paper of a document, as it prints with these settings.

Choose the settings of a document, such as Receipt.</source>
        <translation>Qui sta la carta di un documento, come viene stampata con queste impostazioni.

Scegliere le impostazioni di un documento, per esempio Ricevuta.</translation>
    </message>
    <message>
        <source>A &amp;job of your own...</source>
        <translation>Un &amp;lavoro di stampa a scelta...</translation>
    </message>
    <message>
        <source>A job of your own</source>
        <translation>Un lavoro di stampa a scelta</translation>
    </message>
    <message>
        <source>&amp;Larger</source>
        <translation>In&amp;grandisci</translation>
    </message>
    <message>
        <source>&amp;Smaller</source>
        <translation>&amp;Rimpicciolisci</translation>
    </message>
    <message>
        <source>&amp;Fit the width</source>
        <translation>&amp;Adatta alla larghezza</translation>
    </message>
    <message>
        <source>Save as P&amp;DF...</source>
        <translation>Salva come P&amp;DF...</translation>
    </message>
    <message>
        <source>Save as P&amp;NG...</source>
        <translation>Salva come P&amp;NG...</translation>
    </message>
    <message>
        <source>&amp;Print...</source>
        <translation>&amp;Stampa...</translation>
    </message>
    <message>
        <source>It is being printed...</source>
        <translation>Stampa in corso...</translation>
    </message>
    <message>
        <source>&amp;Paper</source>
        <translation>&amp;Carta</translation>
    </message>
</context>
</TS>
