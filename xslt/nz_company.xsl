<?xml version="1.0" encoding="utf-8"?>
<!-- The report on a company. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">

  <!-- Notices that follow one another under one number are one notice: the first of each run. The first
       layout compares the numbers as they stand, the others without the zeros that lead them. -->
  <xsl:variable name="notices"
                select="$company-notice-files/company-public-notice[not(
                          @unique-id != '' and @unique-id = preceding-sibling::company-public-notice[1]/@unique-id
                          or $layout != 'b2bay'
                             and (string-length(@unique-id) &lt; 16 and number(@unique-id)
                                  = preceding-sibling::company-public-notice[1]/@unique-id
                                  or not(@unique-id != '')
                                     and preceding-sibling::company-public-notice[1][not(@unique-id != '')]))]"/>

  <xsl:template name="company-parts">
    <xsl:param name="as"/>
    <xsl:call-template name="part">
      <xsl:with-param name="id">company</xsl:with-param>
      <xsl:with-param name="title">Company</xsl:with-param>
      <xsl:with-param name="of" select="$registration"/>
      <xsl:with-param name="as" select="$as"/>
    </xsl:call-template>
    <xsl:call-template name="part">
      <xsl:with-param name="id">people</xsl:with-param>
      <xsl:with-param name="title">Shares and officers</xsl:with-param>
      <xsl:with-param name="of" select="$company-files/company-shares | $company-files/company-officers/*"/>
      <xsl:with-param name="as" select="$as"/>
    </xsl:call-template>
    <xsl:call-template name="part">
      <xsl:with-param name="id">credit</xsl:with-param>
      <xsl:with-param name="title">Credit file</xsl:with-param>
      <xsl:with-param name="of" select="$company-default-files/* | $company-files/company-collection-file/*
                                        | $company-credit-files/* | $company-files/company-credit-reference-file/*"/>
      <xsl:with-param name="as" select="$as"/>
    </xsl:call-template>
    <xsl:call-template name="part">
      <xsl:with-param name="id">public</xsl:with-param>
      <xsl:with-param name="title">Public record</xsl:with-param>
      <xsl:with-param name="of" select="$company-judgement-files/* | $company-notice-files/*
          | $company-files/mercantile-gazette-file/* | $company-files/registered-charge-file/*
          | $company-files/document-history/* | $company-files/known-affiliation/*"/>
      <xsl:with-param name="as" select="$as"/>
    </xsl:call-template>
    <xsl:call-template name="part">
      <xsl:with-param name="id">totals</xsl:with-param>
      <xsl:with-param name="title">Summary data</xsl:with-param>
      <xsl:with-param name="of" select="$company-files/summary-data/summary[normalize-space()]"/>
      <xsl:with-param name="as" select="$as"/>
    </xsl:call-template>
  </xsl:template>

  <xsl:template name="company-part">
    <xsl:param name="id"/>
    <xsl:choose>
      <xsl:when test="$id = 'company'"><xsl:for-each select="$registration"><xsl:call-template name="registration"/></xsl:for-each></xsl:when>
      <xsl:when test="$id = 'people'"><xsl:call-template name="shares-and-officers"/></xsl:when>
      <xsl:when test="$id = 'credit'"><xsl:call-template name="company-credit-file"/></xsl:when>
      <xsl:when test="$id = 'public'"><xsl:call-template name="company-public-record"/></xsl:when>
      <xsl:otherwise>
        <xsl:call-template name="totals"><xsl:with-param name="items" select="$company-files/summary-data/summary"/></xsl:call-template>
      </xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <xsl:template name="registration">
    <xsl:call-template name="facts">
      <xsl:with-param name="fields">
        Company name = company-name;
        Registration number = registration-number;
        Registration area = registration-area;
        Status = company-details/company-status as marked;
        Body type = company-details/body-type;
        Incorporation date = company-details/incorporation-date as date;
        Companies Act 1993 applies = company-details/companies-act-1993-applies/@indicator as yes;
        Date archived = company-details/date-archived as date;
        Date re-registered = company-details/re-registered-date as date;
        Constitution filed = company-details/constitution-filed/@indicator as yes;
        Accounts required = company-details/accounts-required/@indicator as yes;
        Registration Act year = company-details/registration-act/@year;
      </xsl:with-param>
    </xsl:call-template>
    <xsl:call-template name="field-table">
      <xsl:with-param name="level" select="3"/>
      <xsl:with-param name="title">Addresses</xsl:with-param>
      <xsl:with-param name="records" select="company-address"/>
      <xsl:with-param name="fields">
        Type = @type as word;
        Address = address-line as lines;
      </xsl:with-param>
    </xsl:call-template>
    <xsl:call-template name="field-table">
      <xsl:with-param name="level" select="3"/>
      <xsl:with-param name="title">Previous names</xsl:with-param>
      <xsl:with-param name="records" select="previous-company-name"/>
      <xsl:with-param name="fields">
        Name = .;
        Changed = @name-start-date as date;
      </xsl:with-param>
    </xsl:call-template>
  </xsl:template>

  <xsl:template name="shares-and-officers">
    <xsl:call-template name="field-table">
      <xsl:with-param name="level" select="3"/>
      <xsl:with-param name="title">Officers</xsl:with-param>
      <xsl:with-param name="records" select="$company-files/company-officers/officer-details"/>
      <xsl:with-param name="fields">
        Name = . as name;
        Office = @type as word;
        Occupation = occupation;
        Address = free-format-address/address-line as lines;
      </xsl:with-param>
    </xsl:call-template>
    <xsl:for-each select="$company-files/company-shares">
      <xsl:call-template name="titled-facts">
        <xsl:with-param name="level" select="3"/>
        <xsl:with-param name="title">Shares</xsl:with-param>
        <xsl:with-param name="fields">
          Number of shares issued = number-of-shares-issued as count;
          Paid capital = paid-capital as amount;
          Extensive shareholdings = extensive-shareholdings/@indicator as yes;
        </xsl:with-param>
      </xsl:call-template>
      <xsl:call-template name="field-table">
        <xsl:with-param name="level" select="3"/>
        <xsl:with-param name="title">Shareholders</xsl:with-param>
        <xsl:with-param name="records" select="shareholder"/>
        <xsl:with-param name="fields">
          Name = shareholder-name;
          Address = free-format-address/address-line as lines;
          $Shares = number-of-shares as count;
        </xsl:with-param>
      </xsl:call-template>
    </xsl:for-each>
  </xsl:template>

  <xsl:template name="company-credit-file">
    <xsl:call-template name="record-section">
      <xsl:with-param name="level" select="3"/>
      <xsl:with-param name="title">Defaults</xsl:with-param>
      <xsl:with-param name="noun">Default</xsl:with-param>
      <xsl:with-param name="records" select="$company-default-files/company-default"/>
    </xsl:call-template>
    <xsl:call-template name="record-section">
      <xsl:with-param name="level" select="3"/>
      <xsl:with-param name="title">Collections</xsl:with-param>
      <xsl:with-param name="noun">Collection</xsl:with-param>
      <xsl:with-param name="records" select="$company-files/company-collection-file/company-collection"/>
    </xsl:call-template>
    <xsl:call-template name="field-table">
      <xsl:with-param name="level" select="3"/>
      <xsl:with-param name="title">Enquiries</xsl:with-param>
      <xsl:with-param name="records" select="$company-credit-files/company-credit-enquirer"/>
      <xsl:with-param name="fields">
        Date = @enquiry-date as date;
        Enquirer = .;
      </xsl:with-param>
    </xsl:call-template>
    <xsl:call-template name="record-section">
      <xsl:with-param name="level" select="3"/>
      <xsl:with-param name="title">Credit references</xsl:with-param>
      <xsl:with-param name="noun">Credit reference</xsl:with-param>
      <xsl:with-param name="records" select="$company-files/company-credit-reference-file/company-credit-reference"/>
    </xsl:call-template>
  </xsl:template>

  <xsl:template match="company-default" mode="tag">
    <xsl:if test="translate(default-balance, '$, ', '') &gt; 0">
      <xsl:call-template name="tag"><xsl:with-param name="text">Not paid</xsl:with-param></xsl:call-template>
    </xsl:if>
  </xsl:template>
  <xsl:template match="company-default" mode="fields">
    Credit provider = credit-provider;
    Default amount = default-amount as amount;
    Default balance = default-balance as amount;
    Default status = company-default-status;
    Last updated = company-default-status/@last-update-date as date;
    Last updated = @last-update-date as date;
    Date paid = date-paid as date;
    Created = @create-date as date;
    Account opened = date-account-opened as date;
    Account opened = @date-account-opened as date;
    Account terms = account-terms;
    Company officer = company-officer as name;
    Address = free-format-address/address-line as lines;
    +Narrative = narrative;
  </xsl:template>

  <xsl:template match="company-credit-reference" mode="fields">
    Created = @create-date as date;
    Supplier industry = supplier-industry;
    Turnover = turnover-amount as amount;
    Terms of trade = terms-of-trade;
    Account opened = account-opened-date as date;
    Account opened = @account-opened-date as date;
    Referee name = referee-name;
    Referee phone = referee-phone-number;
    +Narrative = comment/narrative as lines;
  </xsl:template>

  <xsl:template name="company-public-record">
    <xsl:call-template name="record-section">
      <xsl:with-param name="level" select="3"/>
      <xsl:with-param name="title">Judgements</xsl:with-param>
      <xsl:with-param name="noun">Judgement</xsl:with-param>
      <xsl:with-param name="records" select="$company-judgement-files/company-judgement"/>
    </xsl:call-template>
    <xsl:call-template name="record-section">
      <xsl:with-param name="level" select="3"/>
      <xsl:with-param name="title">Public notices</xsl:with-param>
      <xsl:with-param name="noun">Public notice</xsl:with-param>
      <xsl:with-param name="records" select="$notices"/>
    </xsl:call-template>
    <xsl:call-template name="record-section">
      <xsl:with-param name="level" select="3"/>
      <xsl:with-param name="title">Mercantile Gazette notices</xsl:with-param>
      <xsl:with-param name="noun">Mercantile Gazette</xsl:with-param>
      <xsl:with-param name="records" select="$company-files/mercantile-gazette-file/company-mercantile-gazette"/>
    </xsl:call-template>
    <xsl:call-template name="record-section">
      <xsl:with-param name="level" select="3"/>
      <xsl:with-param name="title">Registered charges</xsl:with-param>
      <xsl:with-param name="noun">Registered charge</xsl:with-param>
      <xsl:with-param name="records" select="$company-files/registered-charge-file/registered-charge"/>
    </xsl:call-template>
    <xsl:call-template name="field-table">
      <xsl:with-param name="level" select="3"/>
      <xsl:with-param name="title">Documents</xsl:with-param>
      <xsl:with-param name="records" select="$company-files/document-history/document-details"/>
      <xsl:with-param name="fields">
        Registered = . as made;
        Document = document-name;
        Barcode = . as counted;
      </xsl:with-param>
    </xsl:call-template>
    <xsl:call-template name="field-table">
      <xsl:with-param name="level" select="3"/>
      <xsl:with-param name="title">Affiliations</xsl:with-param>
      <xsl:with-param name="records" select="$company-files/known-affiliation/affiliated-company"/>
      <xsl:with-param name="fields">
        Company = company-name;
        Number = registration-number;
        Status = company-status as marked;
        Body type = body-type;
        $Shares = number-of-shares-owned as count;
        $Percentage = percentage-of-shares-owned as percent;
      </xsl:with-param>
    </xsl:call-template>
  </xsl:template>

  <!-- The layouts name a document's day and number differently. -->
  <xsl:template match="document-details" mode="made">
    <xsl:call-template name="date"><xsl:with-param name="text" select="normalize-space(date-registered | create-date-registered)"/></xsl:call-template>
  </xsl:template>
  <xsl:template match="document-details" mode="counted">
    <xsl:value-of select="normalize-space(barcode | bar-code)"/>
  </xsl:template>

  <xsl:template match="registered-charge" mode="fields">
    Charge type = charge-type;
    Charge status = charge-status;
    Secured amount = secured-amount as amount;
    Secured amount description = secured-amount-description;
    Chargeholder = chargeholder-name;
    Further chargeholder = additional-charge-holder-name;
    Property charged = property-charged;
    Created = @create-date as date;
    Registered = @registered-date as date;
  </xsl:template>

  <xsl:template match="company-mercantile-gazette" mode="fields">
    Publication date = publication-date as date;
    Gazette type = gazette-type;
    Adverse = adverse/@indicator as yes;
    +Narrative = narrative;
  </xsl:template>

  <xsl:template match="company-judgement" mode="fields">
    Creditor = creditor;
    Judgement amount = judgement-amount as amount;
    Publication date = publication-date as date;
    +Narrative = narrative;
    +Gazette narrative = gazette-narrative;
  </xsl:template>

  <xsl:template match="company-public-notice | company-mercantile-gazette" mode="tag">
    <xsl:if test="translate(adverse/@indicator, $small, $capital) = 'YES'">
      <xsl:call-template name="tag"><xsl:with-param name="text">Adverse</xsl:with-param></xsl:call-template>
    </xsl:if>
  </xsl:template>
  <xsl:template match="company-public-notice" mode="fields">
    Created = @create-date as date;
    Notice type = notice-type;
    Adverse = adverse/@indicator as yes;
    +Narrative = . as made;
  </xsl:template>

  <!-- The narratives of a notice and of those after it under the same number. -->
  <xsl:template match="company-public-notice" mode="made">
    <xsl:param name="said" select="false()"/>
    <xsl:variable name="text" select="normalize-space(narrative)"/>
    <xsl:variable name="id"><xsl:apply-templates select="." mode="id"/></xsl:variable>
    <xsl:variable name="next" select="following-sibling::company-public-notice[1]"/>
    <xsl:variable name="next-id"><xsl:apply-templates select="$next" mode="id"/></xsl:variable>
    <xsl:if test="$said and $text"><xsl:text>&#10;</xsl:text></xsl:if>
    <xsl:value-of select="$text"/>
    <xsl:if test="$next and string($next-id) = string($id) and (string($id) or $layout != 'b2bay')">
      <xsl:apply-templates select="$next" mode="made">
        <xsl:with-param name="said" select="$said or boolean($text)"/>
      </xsl:apply-templates>
    </xsl:if>
  </xsl:template>

</xsl:stylesheet>
