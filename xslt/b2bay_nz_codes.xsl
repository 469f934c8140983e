<?xml version="1.0" encoding="utf-8"?>
<!-- Codes of B2Bay New Zealand; of street types with one code the first is meant. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">

  <xsl:variable name="street-types">
    <xsl:text>|AC=Access|AL=Alley|AN=Anchorage|AP=Approach|AR=Arcade|AV=Avenue|BK=Bank|</xsl:text>
    <xsl:text>BY=Bay|BH=Beach|BT=Belt|BN=Bend|BL=Boulevard|BR=Briars|BG=Bridge|</xsl:text>
    <xsl:text>BW=Broadway|CW=Carrowmore|CE=Centre|CH=Chase|CI=Circle|CX=Circus|CL=Close|</xsl:text>
    <xsl:text>CM=Common|CN=Corner|CR=Crescent|CS=Crest|CT=Court|CV=Cove|DA=Dale|DL=Dell|</xsl:text>
    <xsl:text>DO=Domain|DN=Downs|DR=Drive|EA=East|ED=End|ES=Esplanade|ET=Estate|</xsl:text>
    <xsl:text>EX=Exchange|FA=Fairway|FL=Flat|GD=Gardens|GT=Gate|GL=Glade|GN=Glen|GE=Great|</xsl:text>
    <xsl:text>GG=Green|GR=Grove|HT=Heights|HW=Highway|HL=Hill|JN=Junction|KY=Key|LN=Lane|</xsl:text>
    <xsl:text>LI=Line|LK=Link|LO=Loop|MA=Mall|MD=Mead|MW=Meadows|ME=Mews|ML=Mile|</xsl:text>
    <xsl:text>MY=Motorway|MN=Mount|PD=Parade|PK=Park|PS=Pass|PA=Passage|PH=Path|PL=Place|</xsl:text>
    <xsl:text>PZ=Plaza|PT=Point|PR=Promenade|QT=Quadrant|QU=Quay|RA=Range|RE=Reach|</xsl:text>
    <xsl:text>RV=Reserve|RT=Rest|RG=Ridge|RS=Rise|RD=Road|RY=Roadway|RO=Route|RW=Row|</xsl:text>
    <xsl:text>SR=Spur|SQ=Square|SN=Station|SS=Steps|ST=Street|SP=Strip|SY=Subway|</xsl:text>
    <xsl:text>TA=Tailings|TC=Terrace|TK=Track|TR=Trail|TY=Tramway|TN=Tunnel|VL=Vale|</xsl:text>
    <xsl:text>VY=Valley|VW=View|VS=Views|VE=Village|VA=Vista|WK=Walk|WW=Walkway|WY=Way|</xsl:text>
    <xsl:text>WT=West|WF=Wharf|</xsl:text>
  </xsl:variable>

  <xsl:variable name="notes-types">
    <xsl:text>|200=General|201=Default - Dispute|202=Judgement - Dispute|</xsl:text>
    <xsl:text>203=Collection - Dispute|204=Public Notice - Dispute|</xsl:text>
    <xsl:text>205=Bankruptcy - Dispute|206=Cross Reference - Dispute|</xsl:text>
    <xsl:text>207=Security - Dispute|208=Company Officer - Dispute|209=Inquiry Dispute|</xsl:text>
    <xsl:text>210=Default - General|211=Judgement- General|212=Public Notice- General|</xsl:text>
    <xsl:text>213=Collection - General|214=Bankruptcy- General|</xsl:text>
    <xsl:text>215=Company Officer - General|216=Cross Reference - General|</xsl:text>
    <xsl:text>217=Inquiry - General|218=Security - General|</xsl:text>
  </xsl:variable>

  <xsl:variable name="default-status">
    <xsl:text>|01=Written Off|02=Repossession|03=Gone No Address|</xsl:text>
    <xsl:text>04=Property Law Act Notice|05=Collection Dept/Agency|06=Paid|</xsl:text>
    <xsl:text>07=Paying By Instalments|08=Dishonoured Cheque|09=Overdrawn Account|</xsl:text>
    <xsl:text>10=Payment Default|11=Voluntary|12=Settled|13=Bankrupt|</xsl:text>
    <xsl:text>14=Deed Of Compromise|15=Scheme Of Arrangement|</xsl:text>
  </xsl:variable>

</xsl:stylesheet>
