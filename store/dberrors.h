// The database engine's error numbers that the store raises beside those of the run time.
#pragma once

namespace ostravel::dberr {

constexpr int DuplicateKey = 3022;
constexpr int CouldNotFindFile = 3024;
constexpr int ReadOnly = 3027;
constexpr int DiskError = 3043;
constexpr int CannotOpen = 3049;
constexpr int FileInUse = 3051;
constexpr int TooFewParameters = 3061;
constexpr int SyntaxError = 3075;
constexpr int TableNotFound = 3078;
constexpr int TextAfterStatement = 3142;
constexpr int FieldNotUpdatable = 3164;
constexpr int RelatedRecordRequired = 3201;
constexpr int DatabaseExists = 3204;
constexpr int Locked = 3260;
constexpr int NullNotAllowed = 3314;
constexpr int ObjectInvalid = 3420;

}  // namespace ostravel::dberr
