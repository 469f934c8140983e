<?xml version="1.0" encoding="utf-8"?>
<!-- Codes of VedaXML New Zealand. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">

  <xsl:variable name="street-types">
    <xsl:text>|AC=Access|AW=Accessway|AL=Alley|AY=Alleyway|AM=Amble|AN=Anchorage|AX=Annex|</xsl:text>
    <xsl:text>AP=Approach|AR=Arcade|AT=Artery|AH=Arch|AV=Avenue|BK=Bank|BI=Basin|BY=Bay|</xsl:text>
    <xsl:text>BH=Beach|BT=Belt|BN=Bend|BB=Block|BF=Bluff|BM=Bottom|BL=Boulevard|BC=Brace|</xsl:text>
    <xsl:text>BR=Brae|BA=Branch|BE=Break|BS=Briars|BG=Bridge|BW=Broadway|BO=Brook|BZ=Brow|</xsl:text>
    <xsl:text>BP=Bypass|BX=Byway|CP=Cape|CW=Causeway|C9=Central|CE=Centre|C6=Centreway|</xsl:text>
    <xsl:text>CH=Chase|CI=Circle|C7=Circlet|CC=Circuit|CX=Circus|CA=Claim|CF=Cliffs|</xsl:text>
    <xsl:text>CL=Close|CD=Colonnade|CM=Common|C1=Concourse|CN=Corner|CB=Copse|C4=Corseo|</xsl:text>
    <xsl:text>C5=Corso|CO=Course|CT=Court|CZ=Courts|CY=Courtyard|CV=Cove|CK=Creek|</xsl:text>
    <xsl:text>CR=Crescent|CS=Crest|CQ=Cross|CG=Crossing|C2=Crossroad|C3=Crossway|</xsl:text>
    <xsl:text>C8=Cruiseway|CU=Cul-De-Sac|CJ=Cutting|DA=Dale|DL=Dell|DT=Deviation|DP=Dip|</xsl:text>
    <xsl:text>DS=Distributor|DV=Divide|DN=Downs|DR=Drive|DW=Driveway|DU=Dune|EA=East|</xsl:text>
    <xsl:text>EG=Edge|EL=Elbow|EM=Elm|ED=End|EN=Entrance|ES=Esplanade|ET=Estate|</xsl:text>
    <xsl:text>EW=Expressway|EX=Extension|FA=Fairway|FQ=Fall|FR=Fare|FM=Farms|FN=Fen|FE=Fern|</xsl:text>
    <xsl:text>FY=Ferry|FI=Field|FC=Fire Track|FX=Firetrail|FL=Flat|FB=Flats|FO=Follow|</xsl:text>
    <xsl:text>FW=Footway|FD=Ford|FH=Foreshore|FS=Forest|FK=Forks|FJ=Formation|FT=Fort|</xsl:text>
    <xsl:text>FZ=Freeway|FF=Front|FG=Frontage|GP=Gap|GD=Garden|GS=Gardens|GT=Gate|GL=Glade|</xsl:text>
    <xsl:text>GN=Glen|GA=Grange|GG=Green|GO=Ground|GR=Grove|GU=Gully|HB=Harbour|HV=Haven|</xsl:text>
    <xsl:text>HE=Head|HT=Heights|HR=Highroad|HW=Highway|HL=Hill|HS=Hills|IC=Interchange|</xsl:text>
    <xsl:text>IT=Intersection|IS=Island|JN=Junction|KY=Key|KB=Knob|LA=Ladder|LD=Landing|</xsl:text>
    <xsl:text>LN=Lane|LY=Laneway|LE=Lea|LR=Leader|LS=Lees|LG=Leigh|LH=Lights|LI=Line|</xsl:text>
    <xsl:text>LK=Link|LL=Little|LZ=Lodge|LT=Lookout|LO=Loop|LW=Lower|MA=Mall|MD=Mead|</xsl:text>
    <xsl:text>MW=Meadows|MR=Meander|ME=Mew|ML=Mile|MI=Mill|MS=Mission|MY=Motorway|MU=Motu|</xsl:text>
    <xsl:text>MN=Mount|MT=Mountain|NV=Neaves|NK=Nook|OK=Oaks|OR=Orchard|OL=Outlook|</xsl:text>
    <xsl:text>OV=Overbridge|PC=Paddock|PU=Paku|PM=Palms|PD=Parade|PK=Park|PN=Parklands|</xsl:text>
    <xsl:text>PY=Parkway|PQ=Part|PS=Pass|PA=Passage|PH=Path|PW=Pathway|PX=Piazza|PL=Place|</xsl:text>
    <xsl:text>PE=Plateau|PZ=Plaza|PB=Pocket|PT=Point|PO=Port|PI=Priors|PR=Promenade|QD=Quad|</xsl:text>
    <xsl:text>QL=Quadrangle|QT=Quadrant|QU=Quay|RB=Ramble|RM=Ramp|RJ=Ranae|RA=Range|</xsl:text>
    <xsl:text>RP=Rapids|RH=Reach|RF=Reef|RV=Reserve|RT=Rest|RE=Retreat|RI=Ride|RG=Ridge|</xsl:text>
    <xsl:text>R3=Right Of Way|RK=Ring|RS=Rise|RR=River|R2=Riviera|RD=Road|R1=Roadside|</xsl:text>
    <xsl:text>RY=Roadway|RC=Ronde|RL=Rosebowl|RQ=Rotary|RN=Round|RO=Route|RW=Row|RX=Rua|</xsl:text>
    <xsl:text>RU=Rue|RZ=Run|SV=Service Lane|SW=Service Way|SH=Shore|SI=Siding|SL=Slope|</xsl:text>
    <xsl:text>SO=Sound|SA=Spa|SC=Spring|SR=Spur|SQ=Square|SZ=Stairs|SN=Station|SE=Steep|</xsl:text>
    <xsl:text>SS=Steps|SB=Straat|SG=Straight|SD=Strand|SM=Stream|ST=Street|SP=Strip|</xsl:text>
    <xsl:text>SY=Subway|SU=Summit|TA=Tarn|TC=Terrace|TS=Terraces|TF=Thoroughfare|TW=Tollway|</xsl:text>
    <xsl:text>TP=Top|TO=Tor|TZ=Towers|TK=Track|TR=Trail|TL=Trailer|TV=Tram|TY=Tramway|</xsl:text>
    <xsl:text>TE=Trees|TI=Triangle|TX=Trunkway|TN=Tunnel|TU=Turn|UP=Underpass|UR=Upper|</xsl:text>
    <xsl:text>VL=Vale|VY=Valley|VN=Venus|VD=Viaduct|VW=View|VS=Views|VE=Village|VI=Villas|</xsl:text>
    <xsl:text>VA=Vista|VU=Vue|WD=Wade|WK=Walk|WW=Walkway|WA=Waters|WY=Way|WF=Wharf|</xsl:text>
    <xsl:text>WH=Whenua|WO=Wood|WN=Wynd|YD=Yard|</xsl:text>
  </xsl:variable>

  <xsl:variable name="notes-types">
    <xsl:text>|200=General|201=Default - Dispute|202=Judgement - Dispute|</xsl:text>
    <xsl:text>203=Collection - Dispute|204=Public Notice - Dispute|205=Bankruptcy - Dispute|</xsl:text>
    <xsl:text>206=Cross Reference - Dispute|207=Security - Dispute|</xsl:text>
    <xsl:text>208=Company Officer - Dispute|209=Inquiry - Dispute|210=Default - General|</xsl:text>
    <xsl:text>211=Judgement - General|212=Public Notice - General|213=Collection - General|</xsl:text>
    <xsl:text>214=Bankruptcy - General|215=Company Officer - General|</xsl:text>
    <xsl:text>216=Cross Reference - General|217=Inquiry - General|218=Security - General|</xsl:text>
  </xsl:variable>

  <xsl:variable name="default-status"/>

</xsl:stylesheet>
