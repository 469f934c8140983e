<?xml version="1.0" encoding="utf-8"?>
<!-- The bureau's codes that replies give without a description, as far as the layouts share them; the
     layouts' own tables are $street-types, $notes-types and $default-status. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">

  <!-- The description of a code in one of the tables below; the code itself where it is unknown. -->
  <xsl:template name="described">
    <xsl:param name="table"/>
    <xsl:param name="code"/>
    <xsl:call-template name="look-up">
      <xsl:with-param name="table"><xsl:choose>
        <xsl:when test="$table = 'account-types'"><xsl:value-of select="$account-types"/></xsl:when>
        <xsl:when test="$table = 'notes-types'"><xsl:value-of select="$notes-types"/></xsl:when>
        <xsl:when test="$table = 'default-relationships'"><xsl:value-of select="$default-relationships"/></xsl:when>
        <xsl:when test="$table = 'correction-status'"><xsl:value-of select="$correction-status"/></xsl:when>
        <xsl:when test="$table = 'insolvency-types'"><xsl:value-of select="$insolvency-types"/></xsl:when>
        <xsl:when test="$table = 'insolvency-status'"><xsl:value-of select="$insolvency-status"/></xsl:when>
        <xsl:when test="$table = 'insolvency-courts'"><xsl:value-of select="$insolvency-courts"/></xsl:when>
        <xsl:when test="$table = 'fines-messages'"><xsl:value-of select="$fines-messages"/></xsl:when>
        <xsl:when test="$table = 'street-types'"><xsl:value-of select="$street-types"/></xsl:when>
        <xsl:when test="$table = 'default-status'"><xsl:value-of select="$default-status"/></xsl:when>
      </xsl:choose></xsl:with-param>
      <xsl:with-param name="code" select="$code"/>
    </xsl:call-template>
  </xsl:template>

  <xsl:variable name="account-types">
    <xsl:text>|30=30 Day Account|60=60 Day Account|7=7 Day Account|90=90 Day Account|</xsl:text>
    <xsl:text>B=Budget Account|BF=Bridging Finance|BS=Bill Of Sale|CC=Credit Card|</xsl:text>
    <xsl:text>CD=Cash On Delivery|CE=Consumer Enquiry|CF=Consumer Finance|</xsl:text>
    <xsl:text>CM=Chattel Mortgage|CQ=Cheque (Personal)|CS=Credit Sale Contract|</xsl:text>
    <xsl:text>DC=Damages Claim|DE=Director Enquiry|F=Factored Account|</xsl:text>
    <xsl:text>HB=Hire Purchase (Boat)|HC=Hire Purchase (Commercial)|</xsl:text>
    <xsl:text>HH=Hire Purchase (Household)|HM=Hire Purchase (Vehicle)|L=Leasing|</xsl:text>
    <xsl:text>LC=Loan Contract|LP=Lending Proposal|M=Monthly Account|NS=Not Stated|</xsl:text>
    <xsl:text>O=Optional|OD=Bank Overdraft|PE=Professional Enquiry|PL=Personal Loan|</xsl:text>
    <xsl:text>R=Rental|RM=Real Estate Mortgage|SV=Savings Account|T=Term Account|</xsl:text>
    <xsl:text>TC=Title Check|</xsl:text>
  </xsl:variable>

  <xsl:variable name="default-relationships">
    <xsl:text>|DF=Defaulter|GU=Guarantor|</xsl:text>
  </xsl:variable>

  <xsl:variable name="correction-status">
    <xsl:text>|CA=Cancelled|CO=Corrected|DS=Disputed|RJ=Rejected no statement|</xsl:text>
    <xsl:text>RS=Rejected with statement|</xsl:text>
  </xsl:variable>

  <xsl:variable name="insolvency-types">
    <xsl:text>|TYPCL=Court Liquidation|TYPCP=Creditor Petition|TYPDP=Debtor Petition|</xsl:text>
    <xsl:text>TYPID=Insolvent Deceased Estate|TYPIL=Interim Liquidation|</xsl:text>
    <xsl:text>TYPNP=No Asset Procedure|TYPPA=Partnership|TYPRM=Receiver Manager (Bankrupt)|</xsl:text>
    <xsl:text>TYPSO=Summary Instalment Order|TYP99=UNKNOWN|TYPVA=Voluntary Administration|</xsl:text>
    <xsl:text>TYPVL=Voluntary Liquidation|</xsl:text>
  </xsl:variable>

  <xsl:variable name="insolvency-status">
    <xsl:text>|STAAN=Annulled|STADA=Automatically Discharged|STACM=Completed|</xsl:text>
    <xsl:text>STADC=Conditionally Discharged|STACB=Current Bankrupt|STACN=Current NAP|</xsl:text>
    <xsl:text>STACS=Current SIO|STACL=Currently in Liquidation|</xsl:text>
    <xsl:text>STACV=Currently in Voluntary Administration|STADD=Discharged|</xsl:text>
    <xsl:text>STADE=Discharged Early|STARM=Receiver Manager Appointed|STATD=Terminated|</xsl:text>
    <xsl:text>STA99=UNKNOWN|</xsl:text>
  </xsl:variable>

  <xsl:variable name="insolvency-courts">
    <xsl:text>|COR01=Auckland High Court|COR12=Blenheim High Court|</xsl:text>
    <xsl:text>COR02=Christchurch High Court|COR05=Dunedin High Court|</xsl:text>
    <xsl:text>COR13=Gisborne High Court|COR14=Greymouth High Court|</xsl:text>
    <xsl:text>COR11=Hamilton High Court|COR10=Invercargill High Court|</xsl:text>
    <xsl:text>COR15=Masterton High Court|COR07=Napier High Court|COR16=Nelson High Court|</xsl:text>
    <xsl:text>COR17=New Plymouth High Court|COR20=No Court|COR21=Not applicable|</xsl:text>
    <xsl:text>COR22=Overseas|COR18=Palmerston North High Court|COR09=Rotorua High Court|</xsl:text>
    <xsl:text>COR06=Tauranga High Court|COR19=Timaru High Court|COR99=UNKNOWN|</xsl:text>
    <xsl:text>COR08=Wanganui High Court|COR04=Wellington High Court|</xsl:text>
    <xsl:text>COR03=Whangarei High Court|</xsl:text>
  </xsl:variable>

  <xsl:variable name="fines-messages">
    <xsl:text>|FSR1=FSR1; Overdue fine balance response sent|</xsl:text>
    <xsl:text>FSR2=FSR2; No match/no overdue fine balance|</xsl:text>
    <xsl:text>ERR1=ERR1; Fines data store is not available|</xsl:text>
    <xsl:text>ERR2=ERR2; Unknown reporting user|ERR3=ERR3; Invalid message data detected|</xsl:text>
  </xsl:variable>

</xsl:stylesheet>
