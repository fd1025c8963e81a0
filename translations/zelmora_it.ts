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
        <translation>Il file com'è ora non può essere conservato come %1: %2</translation>
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
        <source>&amp;Reload</source>
        <translation>&amp;Ricarica</translation>
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
        <source>No program finds what has these names, each of which holds a remark or a stray sign:</source>
        <translation>Nessun programma trova ciò che ha questi nomi, ognuno dei quali contiene un commento o un segno di troppo:</translation>
    </message>
    <message>
        <source>These values hold the setting after them; a semicolon is missing, or a remark holds an equals sign:</source>
        <translation>Questi valori contengono l'impostazione che li segue; manca un punto e virgola, o un commento contiene un segno di uguale:</translation>
    </message>
    <message>
        <source>Nothing may stand before the first group of an XML file, no declaration and no comment: no program finds a setting in this file.</source>
        <translation>Prima del primo gruppo di un file XML non può esserci nulla, né dichiarazioni né commenti: nessun programma trova un'impostazione in questo file.</translation>
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
        <source>No program finds these settings, which stand outside every group:</source>
        <translation>Nessun programma trova queste impostazioni, che stanno fuori da ogni gruppo:</translation>
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
        <source>Save all the same</source>
        <translation>Salva comunque</translation>
    </message>
    <message>
        <source>Another program has changed or removed the file %1 since it was opened. Saving drops what it changed.</source>
        <translation>Un altro programma ha modificato o rimosso il file %1 dopo l'apertura. Il salvataggio cancella quelle modifiche.</translation>
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
</context>
</TS>
