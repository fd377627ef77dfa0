#pragma once

/// How a settings-store key is read and written. Values outside the named ones are legal arguments
/// and are refused by the adapters.
enum valueType : int { integerValue = 0, booleanValue = 1, stringValue = 2 };

/// What a getter is asked for.
enum eMenuValueType : int { currentValue = 0, defaultValue = 1 };
