// Codes shared by the whole interface of the host.
#pragma once

#include <QtGlobal>

#if defined(TERVA_HOST_BUILD)
#define NRX_API Q_DECL_EXPORT
#else
#define NRX_API Q_DECL_IMPORT
#endif

// Result of every NcDb* call. The module relies on 0 being success and on
// nothing else but the named failures being told apart.
enum class NcStatus {
    Ok = 0,
    InvalidInput,      // an argument makes no sense
    NotFound,          // no such key, name or object
    Duplicate,         // the key or name is taken
    NotThatClass,      // the object is of another class
    WasErased,         // the object is erased
    OnLockedLayer,     // the layer takes no change
    NotInDatabase,     // the object has no id yet
    AlreadyInDatabase, // the object has an id already
    WasOpenForWrite,   // somebody holds the object open for write
    WasOpenForRead,    // somebody reads the object that was to be opened for write
    NotOpenForWrite,   // a change was asked of an object opened for read
    FileAccess,        // the file could not be read or written
    FileFormat         // the file is no drawing
};

inline bool isOk(NcStatus status) { return status == NcStatus::Ok; }

// How an object is opened.
enum NcOpenMode { kForRead = 0, kForWrite = 1 };

// What a prompt returns. Anything but the first two is a cancel.
enum NcPromptAnswer { kPromptNormal = 5100, kPromptEmpty = 5000, kPromptCancel = -5002, kPromptError = -5001 };
