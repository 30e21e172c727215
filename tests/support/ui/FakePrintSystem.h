#pragma once

#include <functional>

#include "dialogs/PrintSystem.h"

// A print system whose dialog gives the answer that the test has put down.
class FakePrintSystem final : public dialogs::PrintSystem {
 public:
  dialogs::PrintReply reply;
  QStringList names;
  std::vector<dialogs::PrintRequest> requests;
  std::function<void()> onAsk;
  base::Result<dialogs::DeviceMode> properties = dialogs::DeviceMode{};
  QString current;
  dialogs::PrinterState printerState;

  dialogs::PrintReply ask(QWidget*, const dialogs::PrintRequest& request) override {
    requests.push_back(request);
    if (onAsk) onAsk();
    return reply;
  }
  base::Result<dialogs::DeviceMode> documentProperties(const QString&, QWidget*) override {
    return properties;
  }
  QStringList printers() const override { return names; }
  QString nameInDeviceMode(const QString& printer) const override { return printer; }
  QPrinter& printer() override { return printer_; }
  void makeCurrent(const QString& name) override { current = name; }
  dialogs::PrinterState state() const override { return printerState; }
  void setState(const dialogs::PrinterState& state) override { printerState = state; }

 private:
  QPrinter printer_{QPrinter::HighResolution};
};
