// The program's run-time errors: a number the handlers switch on, and its text.
#pragma once

#include <QString>
#include <exception>
#include <string>

namespace ostravel {

namespace err {
constexpr int ReturnWithoutGosub = 3;
constexpr int InvalidProcedureCall = 5;
constexpr int Overflow = 6;
constexpr int SubscriptOutOfRange = 9;
constexpr int DivisionByZero = 11;
constexpr int TypeMismatch = 13;
constexpr int OutOfStack = 28;
constexpr int FileNotFound = 53;
constexpr int BadFileMode = 54;
constexpr int FileAlreadyOpen = 55;
constexpr int FileAlreadyExists = 58;
constexpr int PermissionDenied = 70;
constexpr int PathFileAccess = 75;
constexpr int PathNotFound = 76;
constexpr int ObjectNotSet = 91;
constexpr int InvalidUseOfNull = 94;
constexpr int InvalidPropertyValue = 380;
constexpr int InvalidArrayIndex = 381;
constexpr int NoCurrentRecord = 3021;
constexpr int ItemNotFound = 3265;
constexpr int UpdateWithoutAddNew = 3020;
constexpr int RecordIsDeleted = 3167;
constexpr int DatabaseError = 3001;
constexpr int NotADatabase = 3343;
constexpr int DataTypeConversion = 3421;
}  // namespace err

// The text the run time gives for a number when the raiser names none.
QString standardDescription(int number);

class VbError : public std::exception {
public:
    explicit VbError(int number, QString description = {}, QString source = {});

    int number() const noexcept { return m_number; }
    const QString& description() const noexcept { return m_description; }
    const QString& source() const noexcept { return m_source; }
    const char* what() const noexcept override { return m_what.c_str(); }

private:
    int m_number;
    QString m_description;
    QString m_source;
    std::string m_what;
};

[[noreturn]] void raise(int number, const QString& description = {}, const QString& source = {});

}  // namespace ostravel
