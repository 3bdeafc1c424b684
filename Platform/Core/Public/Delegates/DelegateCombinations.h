#pragma once

// The macros that declare delegate types, as the engine names them:
//   DECLARE_DELEGATE_TwoParams(FOnPicked, int32, const FString&);
// declares FOnPicked, a TDelegate<void(int32, const FString&)>. Include Delegates/Delegate.h.

#define DECLARE_DELEGATE(DelegateName) using DelegateName = TDelegate<void()>
#define DECLARE_DELEGATE_OneParam(DelegateName, Param1Type) using DelegateName = TDelegate<void(Param1Type)>
#define DECLARE_DELEGATE_TwoParams(DelegateName, Param1Type, Param2Type) using DelegateName = TDelegate<void(Param1Type, Param2Type)>
#define DECLARE_DELEGATE_ThreeParams(DelegateName, Param1Type, Param2Type, Param3Type) \
	using DelegateName = TDelegate<void(Param1Type, Param2Type, Param3Type)>
#define DECLARE_DELEGATE_FourParams(DelegateName, Param1Type, Param2Type, Param3Type, Param4Type) \
	using DelegateName = TDelegate<void(Param1Type, Param2Type, Param3Type, Param4Type)>
#define DECLARE_DELEGATE_FiveParams(DelegateName, Param1Type, Param2Type, Param3Type, Param4Type, Param5Type) \
	using DelegateName = TDelegate<void(Param1Type, Param2Type, Param3Type, Param4Type, Param5Type)>

#define DECLARE_DELEGATE_RetVal(ReturnType, DelegateName) using DelegateName = TDelegate<ReturnType()>
#define DECLARE_DELEGATE_RetVal_OneParam(ReturnType, DelegateName, Param1Type) using DelegateName = TDelegate<ReturnType(Param1Type)>
#define DECLARE_DELEGATE_RetVal_TwoParams(ReturnType, DelegateName, Param1Type, Param2Type) \
	using DelegateName = TDelegate<ReturnType(Param1Type, Param2Type)>
#define DECLARE_DELEGATE_RetVal_ThreeParams(ReturnType, DelegateName, Param1Type, Param2Type, Param3Type) \
	using DelegateName = TDelegate<ReturnType(Param1Type, Param2Type, Param3Type)>
#define DECLARE_DELEGATE_RetVal_FourParams(ReturnType, DelegateName, Param1Type, Param2Type, Param3Type, Param4Type) \
	using DelegateName = TDelegate<ReturnType(Param1Type, Param2Type, Param3Type, Param4Type)>

#define DECLARE_MULTICAST_DELEGATE(DelegateName) using DelegateName = TMulticastDelegate<void()>
#define DECLARE_MULTICAST_DELEGATE_OneParam(DelegateName, Param1Type) using DelegateName = TMulticastDelegate<void(Param1Type)>
#define DECLARE_MULTICAST_DELEGATE_TwoParams(DelegateName, Param1Type, Param2Type) \
	using DelegateName = TMulticastDelegate<void(Param1Type, Param2Type)>
#define DECLARE_MULTICAST_DELEGATE_ThreeParams(DelegateName, Param1Type, Param2Type, Param3Type) \
	using DelegateName = TMulticastDelegate<void(Param1Type, Param2Type, Param3Type)>
#define DECLARE_MULTICAST_DELEGATE_FourParams(DelegateName, Param1Type, Param2Type, Param3Type, Param4Type) \
	using DelegateName = TMulticastDelegate<void(Param1Type, Param2Type, Param3Type, Param4Type)>
#define DECLARE_MULTICAST_DELEGATE_FiveParams(DelegateName, Param1Type, Param2Type, Param3Type, Param4Type, Param5Type) \
	using DelegateName = TMulticastDelegate<void(Param1Type, Param2Type, Param3Type, Param4Type, Param5Type)>
