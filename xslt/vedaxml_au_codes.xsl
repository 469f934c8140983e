<?xml version="1.0" encoding="utf-8"?>
<!-- The bureau's codes that replies give without a description. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">

  <xsl:variable name="organisation-types">
    <xsl:text>|PTY=Proprietary|P/L=Proprietary Limited|N/L=No Liability|INC=Incorporated|</xsl:text>
    <xsl:text>LTD=Limited Liability|R/B=Registered Body|</xsl:text>
  </xsl:variable>

  <xsl:variable name="address-types">
    <xsl:text>|RESIDENTIAL-CURRENT=Current residential|</xsl:text>
    <xsl:text>RESIDENTIAL-PREVIOUS=Previous residential|</xsl:text>
  </xsl:variable>

  <xsl:variable name="street-types">
    <xsl:text>|ACC=Access|AL=Alley|AWY=Alleyway|AMB=Amble|ANC=Anchorage|APP=Approach|</xsl:text>
    <xsl:text>ARC=Arcade|ATY=Artery|AVE=Avenue|BNK=Bank|BAS=Basin|BCH=Beach|BND=Bend|</xsl:text>
    <xsl:text>BLK=Block|BLV=Boulevard|BWL=Bowl|BR=Brace|BRA=Brae|BRK=Break|BRG=Bridge|</xsl:text>
    <xsl:text>BWY=Broadway|BRW=Brow|BPS=Bypass|BYW=Byway|CWY=Causeway|CTR=Centre|</xsl:text>
    <xsl:text>CTW=Centreway|CIR=Circle|CLT=Circlet|CCT=Circuit|CH=Chase|CRC=Circus|</xsl:text>
    <xsl:text>CL=Close|CLD=Colonnade|CMN=Common|CNC=Concourse|CPS=Copse|CNR=Corner|</xsl:text>
    <xsl:text>CSO=Corso|CRT=Court|CT=Court|CYD=Courtyard|CVE=Cove|CRS=Crescent|</xsl:text>
    <xsl:text>CSG=Crossing|CRD=Crossroad|CRW=Crossway|CSW=Cruiseway|CDS=Cul-de-sac|</xsl:text>
    <xsl:text>CUT=Cutting|DAL=Dale|DEL=Dell|DVN=Deviation|DIP=Dip|DTR=Distributor|</xsl:text>
    <xsl:text>DR=Drive|DRY=Driveway|EGE=Edge|ELB=Elbow|END=End|ENT=Entrance|</xsl:text>
    <xsl:text>ESP=Esplanade|EST=Estate|EXP=Expressway|EXT=Extension|FAY=Fairway|</xsl:text>
    <xsl:text>FTK=Fire Track|FTL=Firetrail|FLT=Flat|FLW=Follow|FTW=Footway|FSR=Foreshore|</xsl:text>
    <xsl:text>FMN=Formation|FWY=Freeway|FRT=Front|FR=Frontage|GAP=Gap|GDN=Garden|</xsl:text>
    <xsl:text>GDS=Gardens|GTE=Gate|GTS=Gates|GL=Glade|GLN=Glen|GRA=Grange|GRN=Green|</xsl:text>
    <xsl:text>GRD=Ground|GVE=Grove|GLY=Gully|HTS=Heights|HRD=Highroad|HWY=Highway|</xsl:text>
    <xsl:text>HIL=Hill|ITC=Interchange|ITS=Intersection|JN=Junction|KEY=Key|LDG=Landing|</xsl:text>
    <xsl:text>LA=Lane|LWY=Laneway|LEE=Lees|LIN=Line|LK=Link|LT=Little|LKO=Lookout|</xsl:text>
    <xsl:text>LP=Loop|LOW=Lower|MAL=Mall|MDR=Meander|MEW=Mew|MWS=Mews|ML=Mile|</xsl:text>
    <xsl:text>MWY=Motorway|MT=Mount|NK=Nook|OUT=Outlook|PDE=Parade|PKL=Parklands|PS=Park|</xsl:text>
    <xsl:text>PKW=Parkway|PWY=Parkway|PRT=Part|PSS=Pass|PTH=Path|PZA=Piazza|PR=Pier|</xsl:text>
    <xsl:text>PL=Place|PTU=Plateau|PLZ=Plaza|PKT=Pocket|PNT=Point|PT=Port|PRM=Promenade|</xsl:text>
    <xsl:text>QUD=Quad|QDG=Quadrangle|QD=Quadrant|QY=Quay|QYS=Quays|RA=Ramble|RMP=Ramp|</xsl:text>
    <xsl:text>RGE=Range|RCH=Reach|RES=Reserve|RST=Rest|RT=Retreat|RID=Ride|RDG=Ridge|</xsl:text>
    <xsl:text>RDW=Ridgeway|RTW=Right of Way|RNG=Ring|RI=Rise|RVR=River|RVW=Riverway|</xsl:text>
    <xsl:text>RVA=Riviera|RD=Road|RDS=Roads|RSD=Roadside|RDY=Roadway|RDE=Ronde|</xsl:text>
    <xsl:text>RBL=Rosebowl|RTY=Rotary|RND=Round|RTE=Route|ROW=Row|RUE=Rue|RUN=Run|</xsl:text>
    <xsl:text>SWY=Serviceway|SDG=Siding|SLP=Slope|SND=Sound|SPR=Spur|SQ=Square|</xsl:text>
    <xsl:text>STA=Stairs|SHW=Statehighway|STP=Steps|ST=Street|STR=Street|STS=Streets|</xsl:text>
    <xsl:text>STI=Strip|TRN=Tarnice Way|TCE=Terrace|THF=Thoroughfare|TWY=Tollway|TOP=Top|</xsl:text>
    <xsl:text>TOR=Tor|TWR=Towers|TR=Track|TRL=Trail|TRR=Trailer|TRI=Triangle|</xsl:text>
    <xsl:text>TKW=Trunkway|TUR=Turn|UNP=Underpass|UPR=Upper|VAL=Vale|VDT=Viaduct|VW=View|</xsl:text>
    <xsl:text>VLA=Villa|VST=Vista|WD=Wade|WK=Walk|WKY=Walkway|WAY=Way|WF=Wharf|WND=Wynd|</xsl:text>
    <xsl:text>YRD=Yard|</xsl:text>
  </xsl:variable>

</xsl:stylesheet>
