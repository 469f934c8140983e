<?xml version="1.0" encoding="utf-8"?>
<!-- The report on a person: the applicant's as panels, a director's within one panel. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">

  <xsl:template match="director-report">
    <xsl:variable name="number" select="1 + count(preceding-sibling::director-report)"/>
    <xsl:variable name="name"><xsl:apply-templates select="individual[1]" mode="name"/></xsl:variable>
    <section class="panel" id="director-{$number}">
      <h2>
        <xsl:value-of select="concat('Director ', $number)"/>
        <xsl:if test="string($name)"><xsl:value-of select="concat(': ', $name)"/></xsl:if>
      </h2>
      <xsl:call-template name="person-headline"/>
      <xsl:call-template name="person-marks"/>
      <dl class="facts">
        <xsl:call-template name="fact">
          <xsl:with-param name="label">Bureau file number</xsl:with-param>
          <xsl:with-param name="value" select="file-id"/>
        </xsl:call-template>
        <xsl:call-template name="match-type"><xsl:with-param name="type" select="file-id/@match-type"/></xsl:call-template>
      </dl>
      <xsl:call-template name="counts-table">
        <xsl:with-param name="caption">Records of the director; open are those not paid or without a date of discharge</xsl:with-param>
      </xsl:call-template>
      <xsl:call-template name="person-parts"><xsl:with-param name="level" select="3"/></xsl:call-template>
    </section>
  </xsl:template>

  <xsl:template name="person-parts">
    <xsl:param name="level" select="2"/>
    <xsl:param name="as"/>
    <xsl:call-template name="part">
      <xsl:with-param name="id">person</xsl:with-param>
      <xsl:with-param name="level" select="$level"/>
      <xsl:with-param name="title">Person</xsl:with-param>
      <xsl:with-param name="of" select="individual | spouse"/>
      <xsl:with-param name="as" select="$as"/>
    </xsl:call-template>
    <xsl:call-template name="part">
      <xsl:with-param name="id">verification</xsl:with-param>
      <xsl:with-param name="level" select="$level"/>
      <xsl:with-param name="title">Identity verification</xsl:with-param>
      <xsl:with-param name="of" select="identity-verification/* | verification/*"/>
      <xsl:with-param name="as" select="$as"/>
    </xsl:call-template>
    <xsl:call-template name="part">
      <xsl:with-param name="id">credit</xsl:with-param>
      <xsl:with-param name="level" select="$level"/>
      <xsl:with-param name="title">Credit file</xsl:with-param>
      <xsl:with-param name="of" select="default-file/* | default-collection-agency-file/* | collection-file/*
                                        | credit-file/* | note-file/*"/>
      <xsl:with-param name="as" select="$as"/>
    </xsl:call-template>
    <xsl:call-template name="part">
      <xsl:with-param name="id">public</xsl:with-param>
      <xsl:with-param name="level" select="$level"/>
      <xsl:with-param name="title">Public record</xsl:with-param>
      <xsl:with-param name="of" select="judgement-file/* | insolvency-file/* | bankruptcy-file/* | public-notice-file/*
          | name-only-file/* | lost-stolen-id-file/* | company-officer-details/*"/>
      <xsl:with-param name="as" select="$as"/>
    </xsl:call-template>
    <xsl:call-template name="part">
      <xsl:with-param name="id">totals</xsl:with-param>
      <xsl:with-param name="level" select="$level"/>
      <xsl:with-param name="title">Summary data</xsl:with-param>
      <xsl:with-param name="of" select="summary-data/summary[normalize-space()]"/>
      <xsl:with-param name="as" select="$as"/>
    </xsl:call-template>
    <xsl:call-template name="part">
      <xsl:with-param name="id">characteristics</xsl:with-param>
      <xsl:with-param name="level" select="$level"/>
      <xsl:with-param name="title">Negative block</xsl:with-param>
      <xsl:with-param name="of" select="negative-block/characteristic[normalize-space()]"/>
      <xsl:with-param name="as" select="$as"/>
    </xsl:call-template>
    <xsl:call-template name="part">
      <xsl:with-param name="id">score</xsl:with-param>
      <xsl:with-param name="level" select="$level"/>
      <xsl:with-param name="title">Score</xsl:with-param>
      <xsl:with-param name="of" select="score-data/*"/>
      <xsl:with-param name="as" select="$as"/>
    </xsl:call-template>
  </xsl:template>

  <xsl:template name="person-part">
    <xsl:param name="id"/>
    <xsl:param name="level"/>
    <xsl:choose>
      <xsl:when test="$id = 'person'">
        <xsl:apply-templates select="individual[1]" mode="part"><xsl:with-param name="level" select="$level"/></xsl:apply-templates>
        <xsl:apply-templates select="spouse[1]" mode="part"><xsl:with-param name="level" select="$level"/></xsl:apply-templates>
      </xsl:when>
      <xsl:when test="$id = 'verification'">
        <xsl:apply-templates select="identity-verification[1] | verification[1]" mode="part"><xsl:with-param name="level" select="$level"/></xsl:apply-templates>
      </xsl:when>
      <xsl:when test="$id = 'credit'">
        <xsl:call-template name="person-credit-file"><xsl:with-param name="level" select="$level"/></xsl:call-template>
      </xsl:when>
      <xsl:when test="$id = 'public'">
        <xsl:call-template name="person-public-record"><xsl:with-param name="level" select="$level"/></xsl:call-template>
      </xsl:when>
      <xsl:when test="$id = 'totals'">
        <xsl:call-template name="totals"><xsl:with-param name="items" select="summary-data/summary"/></xsl:call-template>
      </xsl:when>
      <xsl:when test="$id = 'characteristics'">
        <xsl:call-template name="totals"><xsl:with-param name="items" select="negative-block/characteristic"/></xsl:call-template>
      </xsl:when>
      <xsl:otherwise><xsl:apply-templates select="score-data[1]" mode="part"/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <xsl:template match="individual" mode="part">
    <xsl:param name="level"/>
    <xsl:call-template name="facts">
      <xsl:with-param name="fields">
        Name = . as name;
        Gender = gender/@type as word;
        Date of birth = date-of-birth as date;
        Marital status = marital-status/@type as word;
        +Corrections = corrections as made;
      </xsl:with-param>
    </xsl:call-template>
    <xsl:call-template name="field-table">
      <xsl:with-param name="level" select="$level + 1"/>
      <xsl:with-param name="title">Addresses</xsl:with-param>
      <xsl:with-param name="records" select="address"/>
      <xsl:with-param name="fields">
        Type = @type as word;
        Address = . as made;
        Recorded = @create-date as date;
      </xsl:with-param>
    </xsl:call-template>
    <xsl:call-template name="employments"><xsl:with-param name="level" select="$level + 1"/></xsl:call-template>
    <xsl:call-template name="field-table">
      <xsl:with-param name="level" select="$level + 1"/>
      <xsl:with-param name="title">Aliases</xsl:with-param>
      <xsl:with-param name="records" select="alias"/>
      <xsl:with-param name="fields">
        Name = . as name;
        Date of birth = . as made;
        Recorded = @create-date as date;
      </xsl:with-param>
    </xsl:call-template>
  </xsl:template>

  <xsl:template name="employments">
    <xsl:param name="level"/>
    <xsl:call-template name="field-table">
      <xsl:with-param name="level" select="$level"/>
      <xsl:with-param name="title">Employment</xsl:with-param>
      <xsl:with-param name="records" select="employment"/>
      <xsl:with-param name="fields">
        Employer = employer;
        Occupation = occupation;
      </xsl:with-param>
    </xsl:call-template>
  </xsl:template>

  <xsl:template match="spouse" mode="part">
    <xsl:param name="level"/>
    <xsl:call-template name="titled-facts">
      <xsl:with-param name="level" select="$level + 1"/>
      <xsl:with-param name="title">Spouse</xsl:with-param>
      <xsl:with-param name="fields">
        Name = . as name;
        Gender = gender/@type as word;
        Date of birth = date-of-birth as date;
        Marital status = marital-status/@type as word;
      </xsl:with-param>
    </xsl:call-template>
    <xsl:call-template name="employments"><xsl:with-param name="level" select="$level + 2 - not(normalize-space(individual-name | gender/@type | date-of-birth))"/></xsl:call-template>
  </xsl:template>

  <!-- An alias with another date of birth may be another person. -->
  <xsl:template match="alias" mode="made">
    <xsl:variable name="born" select="normalize-space(date-of-birth)"/>
    <xsl:call-template name="date"><xsl:with-param name="text" select="$born"/></xsl:call-template>
    <xsl:if test="$born and $born != normalize-space(../date-of-birth)">
      <xsl:call-template name="tag"><xsl:with-param name="class">warn</xsl:with-param><xsl:with-param name="text">Another date of birth</xsl:with-param></xsl:call-template>
    </xsl:if>
  </xsl:template>

  <!-- "2/10 HIGH Street", below it the suburb, below it the city. -->
  <xsl:template match="address" mode="made">
    <xsl:variable name="street-type">
      <xsl:call-template name="described">
        <xsl:with-param name="table">street-types</xsl:with-param>
        <xsl:with-param name="code" select="string(street-type/@code)"/>
      </xsl:call-template>
    </xsl:variable>
    <xsl:variable name="street"
                  select="normalize-space(concat(street-number, ' ', street-name, ' ', $street-type))"/>
    <xsl:value-of select="$street"/>
    <xsl:for-each select="(suburb | city)[normalize-space()]">
      <xsl:if test="$street or position() != 1"><xsl:text>&#10;</xsl:text></xsl:if>
      <xsl:value-of select="normalize-space()"/>
    </xsl:for-each>
  </xsl:template>

  <!-- Each correction: its reference and status, and below them what it says. -->
  <xsl:template match="corrections" mode="made">
    <xsl:for-each select="correction">
      <xsl:if test="position() != 1"><xsl:text>&#10;&#10;</xsl:text></xsl:if>
      <xsl:value-of select="concat('Reference: ', normalize-space(correction-reference), '&#10;Status: ')"/>
      <xsl:call-template name="described">
        <xsl:with-param name="table">correction-status</xsl:with-param>
        <xsl:with-param name="code" select="string(correction-status/@code)"/>
      </xsl:call-template>
      <xsl:if test="normalize-space(correction-status/@date)">
        <xsl:text>, last changed on </xsl:text>
        <xsl:call-template name="date">
          <xsl:with-param name="text" select="normalize-space(correction-status/@date)"/>
        </xsl:call-template>
      </xsl:if>
      <xsl:for-each select="correction-text-detail/correction-text">
        <xsl:value-of select="concat('&#10;', normalize-space())"/>
      </xsl:for-each>
    </xsl:for-each>
  </xsl:template>

  <!-- In a table the corrections of a record stand below its row. -->
  <xsl:template match="*[corrections/correction]" mode="note">
    <span class="label">Corrections</span>
    <xsl:apply-templates select="corrections[1]" mode="made"/>
  </xsl:template>

  <xsl:template name="person-credit-file">
    <xsl:param name="level"/>
    <xsl:call-template name="record-section">
      <xsl:with-param name="level" select="$level + 1"/>
      <xsl:with-param name="title">Defaults</xsl:with-param>
      <xsl:with-param name="noun">Default</xsl:with-param>
      <xsl:with-param name="records" select="default-file/default"/>
    </xsl:call-template>
    <xsl:call-template name="record-section">
      <xsl:with-param name="level" select="$level + 1"/>
      <xsl:with-param name="title">Defaults (collection agency)</xsl:with-param>
      <xsl:with-param name="noun">Default</xsl:with-param>
      <xsl:with-param name="records" select="default-collection-agency-file/default"/>
    </xsl:call-template>
    <xsl:call-template name="record-section">
      <xsl:with-param name="level" select="$level + 1"/>
      <xsl:with-param name="title">Collections</xsl:with-param>
      <xsl:with-param name="noun">Collection</xsl:with-param>
      <xsl:with-param name="records" select="collection-file/collection"/>
    </xsl:call-template>
    <xsl:call-template name="field-table">
      <xsl:with-param name="level" select="$level + 1"/>
      <xsl:with-param name="title">Enquiries</xsl:with-param>
      <xsl:with-param name="records" select="credit-file/credit-enquiry"/>
      <xsl:with-param name="fields">
        Date = @create-date as date;
        Enquirer = credit-enquirer;
        Account type = account-type;
        Client reference = client-reference;
        $Amount = enquiry-amount as made;
      </xsl:with-param>
    </xsl:call-template>
    <xsl:call-template name="field-table">
      <xsl:with-param name="level" select="$level + 1"/>
      <xsl:with-param name="title">Notes</xsl:with-param>
      <xsl:with-param name="records" select="note-file/note"/>
      <xsl:with-param name="fields">
        Date = @create-date as date;
        Number = @unique-id as made;
        Type = @type as notes-types;
        +Note = .;
      </xsl:with-param>
    </xsl:call-template>
  </xsl:template>

  <xsl:template match="default" mode="id">
    <xsl:call-template name="own-number"><xsl:with-param name="id" select="@defaulter-detail-number"/></xsl:call-template>
  </xsl:template>
  <xsl:template match="default" mode="tag">
    <xsl:if test="translate(default-balance-amount, '$, ', '') &gt; 0 or translate(default-balance, '$, ', '') &gt; 0">
      <xsl:call-template name="tag"><xsl:with-param name="text">Not paid</xsl:with-param></xsl:call-template>
    </xsl:if>
  </xsl:template>
  <xsl:template match="default" mode="fields">
    Credit provider = credit-provider;
    Credit provider ANZSIC = ANZSIC-industry;
    Default amount = default-original-amount as amount;
    Default amount = default-amount as amount;
    Default balance = default-balance-amount as amount;
    Default balance = default-balance as amount;
    Account balance = total-loan-amount as made;
    Default status = default-status as made;
    Default status changed = default-status/@date as date;
    Default date = default-date as date;
    Load date = load-date as date;
    Created = @create-date as date;
    Last updated = @last-update-date as date;
    Account type = account-type/@code as account-types;
    Account opened = account-opened-date as date;
    Client reference = client-account-reference-id;
    Client name = . as name;
    Client date of birth = date-of-birth as date;
    Client relationship = consumer-default-relationship/@type as default-relationships;
    Joint liability = @joint-liability as made;
    Company loan = @company-loan as made;
    Detail number = @defaulter-detail-number;
    +Corrections = corrections as made;
  </xsl:template>

  <!-- The first layout writes a code of a table, the later ones a code that the bureau does not explain. -->
  <xsl:template match="default-status" mode="made">
    <xsl:choose>
      <xsl:when test="normalize-space()">
        <xsl:call-template name="described">
          <xsl:with-param name="table">default-status</xsl:with-param>
          <xsl:with-param name="code" select="normalize-space()"/>
        </xsl:call-template>
      </xsl:when>
      <xsl:when test="normalize-space(@code)">
        <xsl:value-of select="normalize-space(@code)"/>
        <xsl:call-template name="tag"><xsl:with-param name="class">warn</xsl:with-param><xsl:with-param name="text">not explained by the bureau</xsl:with-param></xsl:call-template>
      </xsl:when>
    </xsl:choose>
  </xsl:template>

  <xsl:template match="collection | company-collection" mode="tag">
    <xsl:if test="translate(collection-balance, '$, ', '') &gt; 0">
      <xsl:call-template name="tag"><xsl:with-param name="text">Not paid</xsl:with-param></xsl:call-template>
    </xsl:if>
  </xsl:template>
  <xsl:template match="collection | company-collection" mode="fields">
    Creditor = creditor;
    Amount = collection-amount as amount;
    Balance = collection-balance as amount;
    Status = collection-status;
    Created = @create-date as date;
  </xsl:template>

  <!-- An amount of nothing and an N are not worth a fact. -->
  <xsl:template match="total-loan-amount | enquiry-amount" mode="made">
    <xsl:if test="not(number() = 0)">
      <xsl:call-template name="amount"><xsl:with-param name="text" select="normalize-space()"/></xsl:call-template>
    </xsl:if>
  </xsl:template>
  <xsl:template match="@joint-liability | @company-loan" mode="made">
    <xsl:if test="translate(., 'y', 'Y') = 'Y'">Yes</xsl:if>
  </xsl:template>

  <xsl:template name="person-public-record">
    <xsl:param name="level"/>
    <xsl:call-template name="record-section">
      <xsl:with-param name="level" select="$level + 1"/>
      <xsl:with-param name="title">Judgements</xsl:with-param>
      <xsl:with-param name="noun">Judgement</xsl:with-param>
      <xsl:with-param name="records" select="judgement-file/judgement"/>
    </xsl:call-template>
    <xsl:call-template name="record-section">
      <xsl:with-param name="level" select="$level + 1"/>
      <xsl:with-param name="title">Insolvencies</xsl:with-param>
      <xsl:with-param name="noun">Insolvency</xsl:with-param>
      <xsl:with-param name="records" select="insolvency-file/insolvency"/>
    </xsl:call-template>
    <xsl:call-template name="record-section">
      <xsl:with-param name="level" select="$level + 1"/>
      <xsl:with-param name="title">Bankruptcies</xsl:with-param>
      <xsl:with-param name="noun">Bankruptcy</xsl:with-param>
      <xsl:with-param name="records" select="bankruptcy-file/bankruptcy"/>
    </xsl:call-template>
    <xsl:call-template name="record-section">
      <xsl:with-param name="level" select="$level + 1"/>
      <xsl:with-param name="title">Public notices</xsl:with-param>
      <xsl:with-param name="noun">Public notice</xsl:with-param>
      <xsl:with-param name="records" select="public-notice-file/public-notice"/>
    </xsl:call-template>
    <xsl:call-template name="field-table">
      <xsl:with-param name="level" select="$level + 1"/>
      <xsl:with-param name="title">Public notices under the name only</xsl:with-param>
      <xsl:with-param name="records" select="name-only-file/name-only-public-notice"/>
      <xsl:with-param name="fields">
        Published = publication-date as date;
        Notice type = notice-type;
        +Narrative = narrative;
      </xsl:with-param>
    </xsl:call-template>
    <xsl:call-template name="field-table">
      <xsl:with-param name="level" select="$level + 1"/>
      <xsl:with-param name="title">Gazette notices under the name only</xsl:with-param>
      <xsl:with-param name="records" select="name-only-file/mercantile-gazette"/>
      <xsl:with-param name="fields">
        Published = publication-date as date;
        Notice type = mercantile-gazette-type;
        +Narrative = narrative;
      </xsl:with-param>
    </xsl:call-template>
    <xsl:call-template name="field-table">
      <xsl:with-param name="level" select="$level + 1"/>
      <xsl:with-param name="title">Lost or stolen identification</xsl:with-param>
      <xsl:with-param name="records" select="lost-stolen-id-file/lost-stolen-id"/>
      <xsl:with-param name="fields">
        Date = @create-date as date;
        Identification = . as made;
        Issuer = issuer;
        +Narrative = narrative;
      </xsl:with-param>
    </xsl:call-template>
    <xsl:call-template name="field-table">
      <xsl:with-param name="level" select="$level + 1"/>
      <xsl:with-param name="title">Company offices</xsl:with-param>
      <xsl:with-param name="records" select="company-officer-details/company-officer"/>
      <xsl:with-param name="fields">
        Company = company-name;
        Number = registration-number;
        Area = registration-area;
        Status = company-status as marked;
        Name = . as name;
        Recorded = @create-date as date;
      </xsl:with-param>
    </xsl:call-template>
  </xsl:template>

  <!-- The first layout numbers records by their place, save for companies' notices. -->
  <xsl:template mode="id" match="judgement | insolvency | bankruptcy | public-notice
      | company-default | company-judgement | company-mercantile-gazette">
    <xsl:if test="$layout != 'b2bay'">
      <xsl:call-template name="own-number"><xsl:with-param name="id" select="@unique-id"/></xsl:call-template>
    </xsl:if>
  </xsl:template>
  <xsl:template mode="id" match="company-public-notice">
    <xsl:choose>
      <xsl:when test="$layout = 'b2bay'"><xsl:value-of select="normalize-space(@unique-id)"/></xsl:when>
      <xsl:otherwise>
        <xsl:call-template name="own-number"><xsl:with-param name="id" select="@unique-id"/></xsl:call-template>
      </xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <xsl:template match="@unique-id" mode="made">
    <xsl:call-template name="own-number"><xsl:with-param name="id" select="."/></xsl:call-template>
  </xsl:template>

  <!-- A number of a record without the zeros that lead it. -->
  <xsl:template name="own-number">
    <xsl:param name="id"/>
    <xsl:variable name="text" select="normalize-space($id)"/>
    <xsl:variable name="first" select="substring(translate($text, '0', ''), 1, 1)"/>
    <xsl:if test="$first">
      <xsl:value-of select="concat($first, substring-after($text, $first))"/>
    </xsl:if>
  </xsl:template>

  <!-- A judgement without a status still stands. -->
  <xsl:template match="judgement" mode="tag">
    <xsl:if test="$layout = 'vedaxml' and not(normalize-space(judgement-status/@code))
                  and translate(judgement-amount, '$, ', '') &gt; 0">
      <xsl:call-template name="tag"><xsl:with-param name="text">Not paid</xsl:with-param></xsl:call-template>
    </xsl:if>
  </xsl:template>
  <xsl:template match="judgement" mode="fields">
    Creditor = creditor;
    Judgement amount = judgement-amount as amount;
    Court type = court-type;
    Judgement status = judgement-status;
    Load date = load-date as date;
    Publication date = publication-date as date;
    Date paid = date-paid as date;
    Date paid = @date-paid as date;
    Name = . as name;
    +Narrative = narrative;
    +Corrections = corrections as made;
  </xsl:template>

  <xsl:template match="insolvency[not(discharged-date)]" mode="tag">
    <xsl:call-template name="tag"><xsl:with-param name="text">No discharge date</xsl:with-param></xsl:call-template>
  </xsl:template>
  <xsl:template match="insolvency" mode="fields">
    Insolvency number = insolvency-number;
    Type = insolvency-type/@code as insolvency-types;
    Status = insolvency-status as made;
    Adjudication date = adjudication-date as date;
    Adjudication court = adjudication-court as made;
    Discharged date = discharged-date as date;
    +Conditions = conditions;
    Partnership number = partnership-group-number;
    Partnership name = partnership-group-name;
    +Corrections = corrections as made;
  </xsl:template>

  <xsl:template match="insolvency-status | adjudication-court" mode="made">
    <xsl:call-template name="described">
      <xsl:with-param name="table"><xsl:choose>
        <xsl:when test="self::insolvency-status">insolvency-status</xsl:when>
        <xsl:otherwise>insolvency-courts</xsl:otherwise>
      </xsl:choose></xsl:with-param>
      <xsl:with-param name="code" select="normalize-space(@code | code)"/>
    </xsl:call-template>
  </xsl:template>

  <xsl:template match="bankruptcy" mode="tag">
    <xsl:if test="not(date-discharged[$layout != 'b2bay'] | @date-discharged[$layout = 'b2bay'])">
      <xsl:call-template name="tag"><xsl:with-param name="text">Undischarged</xsl:with-param></xsl:call-template>
    </xsl:if>
  </xsl:template>
  <xsl:template match="bankruptcy" mode="fields">
    Load date = load-date as date;
    Publication date = publication-date as date;
    Source = source;
    Discharged date = date-discharged as date;
    Discharged date = @date-discharged as date;
    Name = . as name;
    Address = free-format-address[1] as made;
    Address 2 = free-format-address[2] as made;
    +Narrative = . as made;
    +Corrections = corrections as made;
  </xsl:template>

  <!-- The narratives of a bankruptcy, each after its number. -->
  <xsl:template match="bankruptcy" mode="made">
    <xsl:for-each select="narrative">
      <xsl:if test="position() != 1"><xsl:text>&#10;</xsl:text></xsl:if>
      <xsl:if test="normalize-space(unique-id | @unique-id)">
        <xsl:value-of select="concat(normalize-space(unique-id | @unique-id), ': ')"/>
      </xsl:if>
      <xsl:for-each select="text()[normalize-space()]">
        <xsl:value-of select="concat(substring(' ', 1, position() != 1), normalize-space())"/>
      </xsl:for-each>
    </xsl:for-each>
  </xsl:template>

  <!-- Lines of an address: of its elements, else its text as it stands. -->
  <xsl:template match="free-format-address" mode="made">
    <xsl:choose>
      <xsl:when test="address-line">
        <xsl:for-each select="address-line[normalize-space()]">
          <xsl:value-of select="concat(substring('&#10;', 1, position() != 1), normalize-space())"/>
        </xsl:for-each>
      </xsl:when>
      <xsl:otherwise>
        <xsl:call-template name="value"><xsl:with-param name="value" select="string()"/></xsl:call-template>
      </xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <xsl:template match="public-notice" mode="fields">
    Load date = load-date as date;
    Publication date = publication-date as date;
    Notice type = notice-type;
    Name = . as name;
    Address = free-format-address[1] as made;
    Address 2 = free-format-address[2] as made;
    +Narrative = narrative;
    +Corrections = corrections as made;
  </xsl:template>

  <!-- "Stolen Passport (number 12) - NOT REPORTED TO POLICE". -->
  <xsl:template match="lost-stolen-id" mode="made">
    <xsl:choose>
      <xsl:when test="@lost-or-stolen = 'L'">Lost </xsl:when>
      <xsl:when test="@lost-or-stolen = 'S'">Stolen </xsl:when>
    </xsl:choose>
    <xsl:value-of select="normalize-space(id-type)"/>
    <xsl:if test="normalize-space(id-type/@id-detail)">
      <xsl:value-of select="concat(' (', normalize-space(id-type/@id-detail), ')')"/>
    </xsl:if>
    <xsl:choose>
      <xsl:when test="@reported-to-police = 'Y'"> - Reported to Police</xsl:when>
      <xsl:otherwise> - NOT REPORTED TO POLICE</xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <xsl:template match="score-data" mode="part">
    <xsl:call-template name="facts">
      <xsl:with-param name="fields">
        Scorecard = scorecard-name;
        Relative risk = relative-risk as number;
        Relative risk index = relative-risk-index as number;
        Risk odds = risk-odds as number;
      </xsl:with-param>
    </xsl:call-template>
    <xsl:call-template name="odds">
      <xsl:with-param name="own" select="number(risk-odds)"/>
      <xsl:with-param name="population" select="number(population/@population-odds | population/population-odds)"/>
      <xsl:with-param name="name" select="population/@population-name | population/population-name"/>
    </xsl:call-template>
  </xsl:template>

</xsl:stylesheet>
