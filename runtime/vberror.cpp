#include "runtime/vberror.h"

#include <utility>

namespace ostravel {

QString standardDescription(int number) {
    switch (number) {
        case err::ReturnWithoutGosub:
            return QStringLiteral("Return without GoSub");
        case err::InvalidProcedureCall:
            return QStringLiteral("Invalid procedure call or argument");
        case err::Overflow:
            return QStringLiteral("Overflow");
        case err::SubscriptOutOfRange:
            return QStringLiteral("Subscript out of range");
        case err::DivisionByZero:
            return QStringLiteral("Division by zero");
        case err::TypeMismatch:
            return QStringLiteral("Type mismatch");
        case err::OutOfStack:
            return QStringLiteral("Out of stack space");
        case err::FileNotFound:
            return QStringLiteral("File not found");
        case err::BadFileMode:
            return QStringLiteral("Bad file mode");
        case err::FileAlreadyOpen:
            return QStringLiteral("File already open");
        case err::FileAlreadyExists:
            return QStringLiteral("File already exists");
        case err::PermissionDenied:
            return QStringLiteral("Permission denied");
        case err::PathFileAccess:
            return QStringLiteral("Path/File access error");
        case err::PathNotFound:
            return QStringLiteral("Path not found");
        case err::ObjectNotSet:
            return QStringLiteral("Object variable or With block variable not set");
        case err::InvalidUseOfNull:
            return QStringLiteral("Invalid use of Null");
        case err::InvalidPropertyValue:
            return QStringLiteral("Invalid property value");
        case err::InvalidArrayIndex:
            return QStringLiteral("Invalid property array index");
        case err::DatabaseError:
            return QStringLiteral("Invalid argument.");
        case err::UpdateWithoutAddNew:
            return QStringLiteral("Update or CancelUpdate without AddNew or Edit.");
        case err::NoCurrentRecord:
            return QStringLiteral("No current record.");
        case err::RecordIsDeleted:
            return QStringLiteral("Record is deleted.");
        case err::ItemNotFound:
            return QStringLiteral("Item not found in this collection.");
        case err::NotADatabase:
            return QStringLiteral("Unrecognized database format");
        case err::DataTypeConversion:
            return QStringLiteral("Data type conversion error.");
        default:
            return QStringLiteral("Application-defined or object-defined error");
    }
}

VbError::VbError(int number, QString description, QString source)
    : m_number(number),
      m_description(description.isEmpty() ? standardDescription(number) : std::move(description)),
      m_source(std::move(source)),
      m_what(m_description.toStdString()) {}

void raise(int number, const QString& description, const QString& source) {
    throw VbError(number, description, source);
}

}  // namespace ostravel
