#include "app/RunTimeError.h"

namespace app {
namespace {

int errorNumber(base::ErrorCode code) {
  switch (code) {
    case base::ErrorCode::NotFound:
      return 53;
    case base::ErrorCode::AlreadyExists:
      return 58;
    case base::ErrorCode::NoSpace:
      return 61;
    case base::ErrorCode::AccessDenied:
    case base::ErrorCode::InUse:
      return 70;
    case base::ErrorCode::ReadOnly:
      return 75;
    case base::ErrorCode::Cancelled:
      return 18;
    case base::ErrorCode::InvalidName:
      return 52;
    case base::ErrorCode::InvalidValue:
      return 5;
    case base::ErrorCode::Truncated:
    case base::ErrorCode::Damaged:
    case base::ErrorCode::IndexDamaged:
    case base::ErrorCode::NotADatabase:
    case base::ErrorCode::NewerVersion:
    case base::ErrorCode::Encrypted:
    case base::ErrorCode::PasswordProtected:
    case base::ErrorCode::MissingTable:
    case base::ErrorCode::MissingColumn:
    case base::ErrorCode::WrongShape:
    case base::ErrorCode::Unsupported:
      return 321;
    case base::ErrorCode::IoError:
    case base::ErrorCode::ChangedOnDisk:
      break;
  }
  return 57;
}

}  // namespace

std::string runTimeErrorText(const base::Error& error) {
  return "Fehler # " + std::to_string(errorNumber(error.code)) + " wurde ausgelöst von Kalvira\n" +
         base::germanMessage(error);
}

}  // namespace app
