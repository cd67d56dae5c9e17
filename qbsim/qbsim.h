// The embedded company-file processor.
//
// `qbsim` answers the qbXML requests of the library from a company file on disk, the way
// QuickBooks would: an application or a test runs the library end to end without QuickBooks.
//
//   tessaron::qbsim::RegisterProcessor();                  // once, before connecting
//   tessaron::qbsim::CreateSampleCompany("demo.qbw", {});  // or CreateCompany for an empty one
//   QBConnection qb; qb.Connect("", "My app", 0, "demo.qbw");
//
// RegisterProcessor makes the processor the one the library creates under the
// programmatic identifiers QBXMLRP.RequestProcessor and QBXMLRP2.RequestProcessor.
//
// Events: an application that subscribed (DataEventSubscriptionAdd, UIEventSubscriptionAdd)
// receives the event texts QuickBooks would send through one handler of the host:
//
//   tessaron::qbsim::SetEventHandler([](const std::string& subscriberId, const std::string& xml) {
//     qbEvent e; e.ParseXML(xml); ...
//   });
#pragma once

#include <memory>
#include <string>

#include "qbsim/company_file.h"
#include "qbsim/processor.h"
#include "qbsim/processor_options.h"
#include "qbsim/sample_company.h"
#include "qbsim/status.h"
#include "qbsim/subscription_store.h"

namespace tessaron::qbsim {

// Registers the processor under both identifiers (or those `registration` keeps); each
// processor the library creates gets a copy of `options`. Registering again replaces them.
void RegisterProcessor(const ProcessorOptions& options = {}, const Registration& registration = {});
// Takes the registrations away again.
void UnregisterProcessor();

// A processor of its own, for use without the registry.
std::shared_ptr<Processor> CreateProcessor(const ProcessorOptions& options = {});

// Creates an empty company file (no records, default company record and preferences).
void CreateCompany(const std::string& path, const CompanySetup& setup = {});

}  // namespace tessaron::qbsim
