// The candidate companies that a company search returned.
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>

namespace zr {

/// One candidate. Everything but BureauFileId is read-only to hosts.
class CompanySelection {
  public:
    explicit CompanySelection(std::string_view company_name) : company_name_(company_name) {}

    const std::string& CompanyName() const { return company_name_; }
    /// Registration number; "" when the bureau gave none that can be asked for.
    const std::string& CompanyNumber() const { return company_number_; }
    /// Registration status as the bureau reports it.
    const std::string& CompanyStatus() const { return company_status_; }
    /// Company type code and its description.
    const std::string& CompanyType() const { return company_type_; }
    const std::string& CompanyTypeDescription() const { return company_type_description_; }
    /// Area or register in which the company is registered.
    const std::string& RegistrationArea() const { return registration_area_; }
    /// The bureau's file number of the company. Hosts may write it.
    const std::string& BureauFileId() const { return bureau_file_id_; }
    void BureauFileId(std::string_view id) const { bureau_file_id_ = id; }

    // Component-internal: hosts see a selection as const.
    void CompanyName(std::string_view name) { company_name_ = name; }
    void CompanyNumber(std::string_view number) { company_number_ = number; }
    void CompanyStatus(std::string_view status) { company_status_ = status; }
    void CompanyType(std::string_view type) { company_type_ = type; }
    void CompanyTypeDescription(std::string_view description) {
        company_type_description_ = description;
    }
    void RegistrationArea(std::string_view area) { registration_area_ = area; }

  private:
    std::string company_name_;
    std::string company_number_;
    std::string company_status_;
    std::string company_type_;
    std::string company_type_description_;
    std::string registration_area_;
    mutable std::string bureau_file_id_;  // the host's to write in a record that is const to it
};

/// The candidates in the order of adding.
class CompanySelections {
  public:
    std::int32_t Count() const { return static_cast<std::int32_t>(items_.size()); }

    /// The candidate at a 1-based position; raises the not-found error outside 1..Count.
    const CompanySelection& Item(std::int32_t position) const;

    auto begin() const { return items_.begin(); }
    auto end() const { return items_.end(); }

    /// Component-internal: appends a candidate whose other properties are empty.
    CompanySelection& AddSelection(std::string_view company_name) {
        return items_.emplace_back(company_name);
    }

  private:
    std::deque<CompanySelection> items_;
};

}  // namespace zr
