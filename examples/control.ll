source_filename = "control.cpp"
declare { %class.Fixed*, %struct.Gains*, %struct.Limits*, %struct.unnamed_1* } @llvm.dbg.order()
%class.Controller = type { %struct.Gains, %struct.Limits, %class.Fixed, %class.Fixed }
%struct.Gains = type { %class.Fixed, %class.Fixed, %class.Fixed }
%class.Fixed = type { i32 }
%struct.Limits = type { i16, i16 }
%struct.unnamed_1 = type { i32, void ()*, i8* }
@_ZL12heater_gains = internal global %struct.Gains zeroinitializer
@_ZL6heater = internal global %class.Controller zeroinitializer
@_ZL13heater_limits = internal constant %struct.Limits { i16 0, i16 100 }
@llvm.global_ctors = appending global [1 x %struct.unnamed_1] [%struct.unnamed_1 { i32 65535, void ()* @_GLOBAL__sub_I_control_cpp, i8* null }]
declare void @llvm.dbg.declare(metadata, metadata, metadata)
declare i16 @read_temperature()
declare void @set_heater(i16)
declare void @llvm.memcpy.p0i8.p0i8.i16(i8*, i8*, i16, i1)
define internal void @__cxx_global_var_init() {
entry:
  call void @_ZN5FixedC2Ei(%class.Fixed* getelementptr (%struct.Gains, %struct.Gains* @_ZL12heater_gains, i32 0, i32 0), i16 2)
  call void @_ZN5Fixed8from_rawEl(%class.Fixed* getelementptr (%struct.Gains, %struct.Gains* @_ZL12heater_gains, i32 0, i32 1), i32 16)
  call void @_ZN5Fixed8from_rawEl(%class.Fixed* getelementptr (%struct.Gains, %struct.Gains* @_ZL12heater_gains, i32 0, i32 2), i32 64)
  ret void
}

define linkonce_odr void @_ZN5FixedC2Ei(%class.Fixed* %this, i16 %whole) {
entry:
  %this.addr = alloca %class.Fixed*
  %whole.addr = alloca i16
  %0 = load i16, i16* %whole.addr
  %1 = mul i16 %0, 256
  %2 = sext i16 %1 to i32
  %3 = load %class.Fixed*, %class.Fixed** %this.addr
  %4 = getelementptr inbounds %class.Fixed, %class.Fixed* %3, i32 0, i32 0
  store i32 %2, i32* %4
  ret void
}

define linkonce_odr void @_ZN5FixedC2Ev(%class.Fixed* %this) {
entry:
  %this.addr = alloca %class.Fixed*
  %0 = load %class.Fixed*, %class.Fixed** %this.addr
  %1 = getelementptr inbounds %class.Fixed, %class.Fixed* %0, i32 0, i32 0
  store i32 0, i32* %1
  ret void
}

define linkonce_odr void @_ZN5Fixed8from_rawEl(%class.Fixed* %agg_result, i32 %bits) {
entry:
  %bits.addr = alloca i32
  %agg_result.addr = alloca %class.Fixed*
  %0 = load %class.Fixed*, %class.Fixed** %agg_result.addr
  call void @_ZN5FixedC2Ev(%class.Fixed* %0)
  %1 = load i32, i32* %bits.addr
  %2 = load %class.Fixed*, %class.Fixed** %agg_result.addr
  %3 = getelementptr inbounds %class.Fixed, %class.Fixed* %2, i32 0, i32 0
  store i32 %1, i32* %3
  ret void
}

define internal void @__cxx_global_var_init_1() {
entry:
  call void @_ZN10ControllerC2ERK5GainsRK6Limits(%class.Controller* @_ZL6heater, %struct.Gains* @_ZL12heater_gains, %struct.Limits* @_ZL13heater_limits)
  ret void
}

define linkonce_odr void @_ZN10ControllerC2ERK5GainsRK6Limits(%class.Controller* %this, %struct.Gains* %wanted, %struct.Limits* %range) {
entry:
  %this.addr = alloca %class.Controller*
  %wanted.addr = alloca %struct.Gains*
  %range.addr = alloca %struct.Limits*
  %0 = load %struct.Gains*, %struct.Gains** %wanted.addr
  %1 = load %struct.Gains, %struct.Gains* %0
  %2 = load %class.Controller*, %class.Controller** %this.addr
  %3 = getelementptr inbounds %class.Controller, %class.Controller* %2, i32 0, i32 0
  store %struct.Gains %1, %struct.Gains* %3
  %4 = load %struct.Limits*, %struct.Limits** %range.addr
  %5 = load %struct.Limits, %struct.Limits* %4
  %6 = load %class.Controller*, %class.Controller** %this.addr
  %7 = getelementptr inbounds %class.Controller, %class.Controller* %6, i32 0, i32 1
  store %struct.Limits %5, %struct.Limits* %7
  %8 = load %class.Controller*, %class.Controller** %this.addr
  %9 = getelementptr inbounds %class.Controller, %class.Controller* %8, i32 0, i32 2
  call void @_ZN5FixedC2Ei(%class.Fixed* %9, i16 0)
  %10 = load %class.Controller*, %class.Controller** %this.addr
  %11 = getelementptr inbounds %class.Controller, %class.Controller* %10, i32 0, i32 3
  call void @_ZN5FixedC2Ei(%class.Fixed* %11, i16 0)
  ret void
}

define void @control(i16 %target) {
entry:
  %target.addr = alloca i16
  %measured = alloca i16
  %0 = call i16 @read_temperature()
  store i16 %0, i16* %measured
  %1 = load i16, i16* %measured
  %2 = icmp slt i16 %1, -40
  br i1 %2, label %if.then0, label %lor.lhs.false1

lor.lhs.false1:
  %3 = load i16, i16* %measured
  %4 = icmp sgt i16 %3, 125
  br i1 %4, label %if.then0, label %if.end0

if.then0:
  call void @_ZN10Controller5resetEv(%class.Controller* @_ZL6heater)
  call void @set_heater(i16 0)
  ret void

if.end0:
  %5 = load i16, i16* %target.addr
  %6 = load i16, i16* %measured
  %7 = call i16 @_ZN10Controller4stepEii(%class.Controller* @_ZL6heater, i16 %5, i16 %6)
  call void @set_heater(i16 %7)
  ret void
}

define linkonce_odr void @_ZN10Controller5resetEv(%class.Controller* %this) {
entry:
  %this.addr = alloca %class.Controller*
  %ref_tmp = alloca %class.Fixed
  %ref_tmp2 = alloca %class.Fixed
  call void @_ZN5FixedC2Ei(%class.Fixed* %ref_tmp, i16 0)
  %0 = load %class.Fixed, %class.Fixed* %ref_tmp
  %1 = load %class.Controller*, %class.Controller** %this.addr
  %2 = getelementptr inbounds %class.Controller, %class.Controller* %1, i32 0, i32 2
  store %class.Fixed %0, %class.Fixed* %2
  call void @_ZN5FixedC2Ei(%class.Fixed* %ref_tmp2, i16 0)
  %3 = load %class.Fixed, %class.Fixed* %ref_tmp2
  %4 = load %class.Controller*, %class.Controller** %this.addr
  %5 = getelementptr inbounds %class.Controller, %class.Controller* %4, i32 0, i32 3
  store %class.Fixed %3, %class.Fixed* %5
  ret void
}

define linkonce_odr void @_ZNK5FixedmiERKS_(%class.Fixed* %agg_result, %class.Fixed* %this, %class.Fixed* %other) {
entry:
  %this.addr = alloca %class.Fixed*
  %other.addr = alloca %class.Fixed*
  %agg_result.addr = alloca %class.Fixed*
  %0 = load %class.Fixed*, %class.Fixed** %agg_result.addr
  %1 = load %class.Fixed*, %class.Fixed** %this.addr
  %2 = getelementptr inbounds %class.Fixed, %class.Fixed* %1, i32 0, i32 0
  %3 = load i32, i32* %2
  %4 = load %class.Fixed*, %class.Fixed** %other.addr
  %5 = getelementptr inbounds %class.Fixed, %class.Fixed* %4, i32 0, i32 0
  %6 = load i32, i32* %5
  %7 = sub i32 %3, %6
  call void @_ZN5Fixed8from_rawEl(%class.Fixed* %0, i32 %7)
  ret void
}

define linkonce_odr void @_ZNK5FixedmlERKS_(%class.Fixed* %agg_result, %class.Fixed* %this, %class.Fixed* %other) {
entry:
  %this.addr = alloca %class.Fixed*
  %other.addr = alloca %class.Fixed*
  %agg_result.addr = alloca %class.Fixed*
  %0 = load %class.Fixed*, %class.Fixed** %agg_result.addr
  %1 = load %class.Fixed*, %class.Fixed** %this.addr
  %2 = getelementptr inbounds %class.Fixed, %class.Fixed* %1, i32 0, i32 0
  %3 = load i32, i32* %2
  %4 = load %class.Fixed*, %class.Fixed** %other.addr
  %5 = getelementptr inbounds %class.Fixed, %class.Fixed* %4, i32 0, i32 0
  %6 = load i32, i32* %5
  %7 = mul i32 %3, %6
  %8 = sdiv i32 %7, 256
  call void @_ZN5Fixed8from_rawEl(%class.Fixed* %0, i32 %8)
  ret void
}

define linkonce_odr %class.Fixed* @_ZN5FixedpLERKS_(%class.Fixed* %this, %class.Fixed* %other) {
entry:
  %this.addr = alloca %class.Fixed*
  %other.addr = alloca %class.Fixed*
  %0 = load %class.Fixed*, %class.Fixed** %this.addr
  %1 = getelementptr inbounds %class.Fixed, %class.Fixed* %0, i32 0, i32 0
  %2 = load i32, i32* %1
  %3 = load %class.Fixed*, %class.Fixed** %other.addr
  %4 = getelementptr inbounds %class.Fixed, %class.Fixed* %3, i32 0, i32 0
  %5 = load i32, i32* %4
  %6 = add i32 %2, %5
  %7 = load %class.Fixed*, %class.Fixed** %this.addr
  %8 = getelementptr inbounds %class.Fixed, %class.Fixed* %7, i32 0, i32 0
  store i32 %6, i32* %8
  %9 = load %class.Fixed*, %class.Fixed** %this.addr
  ret %class.Fixed* %9
}

define linkonce_odr zeroext i1 @_ZNK5FixedltERKS_(%class.Fixed* %this, %class.Fixed* %other) {
entry:
  %this.addr = alloca %class.Fixed*
  %other.addr = alloca %class.Fixed*
  %0 = load %class.Fixed*, %class.Fixed** %this.addr
  %1 = getelementptr inbounds %class.Fixed, %class.Fixed* %0, i32 0, i32 0
  %2 = load i32, i32* %1
  %3 = load %class.Fixed*, %class.Fixed** %other.addr
  %4 = getelementptr inbounds %class.Fixed, %class.Fixed* %3, i32 0, i32 0
  %5 = load i32, i32* %4
  %6 = icmp slt i32 %2, %5
  ret i1 %6
}

define linkonce_odr zeroext i1 @_ZNK5FixedgtERKS_(%class.Fixed* %this, %class.Fixed* %other) {
entry:
  %this.addr = alloca %class.Fixed*
  %other.addr = alloca %class.Fixed*
  %0 = load %class.Fixed*, %class.Fixed** %this.addr
  %1 = getelementptr inbounds %class.Fixed, %class.Fixed* %0, i32 0, i32 0
  %2 = load i32, i32* %1
  %3 = load %class.Fixed*, %class.Fixed** %other.addr
  %4 = getelementptr inbounds %class.Fixed, %class.Fixed* %3, i32 0, i32 0
  %5 = load i32, i32* %4
  %6 = icmp sgt i32 %2, %5
  ret i1 %6
}

define linkonce_odr void @_Z5clampI5FixedET_RKS1_S3_S3_(%class.Fixed* %agg_result, %class.Fixed* %value, %class.Fixed* %low, %class.Fixed* %high) {
entry:
  %value.addr = alloca %class.Fixed*
  %low.addr = alloca %class.Fixed*
  %high.addr = alloca %class.Fixed*
  %agg_result.addr = alloca %class.Fixed*
  %0 = load %class.Fixed*, %class.Fixed** %value.addr
  %1 = load %class.Fixed*, %class.Fixed** %low.addr
  %2 = call i1 @_ZNK5FixedltERKS_(%class.Fixed* %0, %class.Fixed* %1)
  br i1 %2, label %if.then0, label %if.end0

if.then0:
  %3 = load %class.Fixed*, %class.Fixed** %low.addr
  %4 = load %class.Fixed, %class.Fixed* %3
  %5 = load %class.Fixed*, %class.Fixed** %agg_result.addr
  store %class.Fixed %4, %class.Fixed* %5
  ret void

if.end0:
  %6 = load %class.Fixed*, %class.Fixed** %value.addr
  %7 = load %class.Fixed*, %class.Fixed** %high.addr
  %8 = call i1 @_ZNK5FixedgtERKS_(%class.Fixed* %6, %class.Fixed* %7)
  br i1 %8, label %if.then1, label %if.end1

if.then1:
  %9 = load %class.Fixed*, %class.Fixed** %high.addr
  %10 = load %class.Fixed, %class.Fixed* %9
  %11 = load %class.Fixed*, %class.Fixed** %agg_result.addr
  store %class.Fixed %10, %class.Fixed* %11
  ret void

if.end1:
  %12 = load %class.Fixed*, %class.Fixed** %value.addr
  %13 = load %class.Fixed, %class.Fixed* %12
  %14 = load %class.Fixed*, %class.Fixed** %agg_result.addr
  store %class.Fixed %13, %class.Fixed* %14
  ret void
}

define linkonce_odr void @_ZNK5FixedplERKS_(%class.Fixed* %agg_result, %class.Fixed* %this, %class.Fixed* %other) {
entry:
  %this.addr = alloca %class.Fixed*
  %other.addr = alloca %class.Fixed*
  %agg_result.addr = alloca %class.Fixed*
  %0 = load %class.Fixed*, %class.Fixed** %agg_result.addr
  %1 = load %class.Fixed*, %class.Fixed** %this.addr
  %2 = getelementptr inbounds %class.Fixed, %class.Fixed* %1, i32 0, i32 0
  %3 = load i32, i32* %2
  %4 = load %class.Fixed*, %class.Fixed** %other.addr
  %5 = getelementptr inbounds %class.Fixed, %class.Fixed* %4, i32 0, i32 0
  %6 = load i32, i32* %5
  %7 = add i32 %3, %6
  call void @_ZN5Fixed8from_rawEl(%class.Fixed* %0, i32 %7)
  ret void
}

define linkonce_odr i16 @_ZNK5Fixed5wholeEv(%class.Fixed* %this) {
entry:
  %this.addr = alloca %class.Fixed*
  %0 = load %class.Fixed*, %class.Fixed** %this.addr
  %1 = getelementptr inbounds %class.Fixed, %class.Fixed* %0, i32 0, i32 0
  %2 = load i32, i32* %1
  %3 = sdiv i32 %2, 256
  %4 = trunc i32 %3 to i16
  ret i16 %4
}

define linkonce_odr i16 @_Z5clampIiET_RKS0_S2_S2_(i16* %value, i16* %low, i16* %high) {
entry:
  %value.addr = alloca i16*
  %low.addr = alloca i16*
  %high.addr = alloca i16*
  %0 = load i16*, i16** %value.addr
  %1 = load i16, i16* %0
  %2 = load i16*, i16** %low.addr
  %3 = load i16, i16* %2
  %4 = icmp slt i16 %1, %3
  br i1 %4, label %if.then0, label %if.end0

if.then0:
  %5 = load i16*, i16** %low.addr
  %6 = load i16, i16* %5
  ret i16 %6

if.end0:
  %7 = load i16*, i16** %value.addr
  %8 = load i16, i16* %7
  %9 = load i16*, i16** %high.addr
  %10 = load i16, i16* %9
  %11 = icmp sgt i16 %8, %10
  br i1 %11, label %if.then1, label %if.end1

if.then1:
  %12 = load i16*, i16** %high.addr
  %13 = load i16, i16* %12
  ret i16 %13

if.end1:
  %14 = load i16*, i16** %value.addr
  %15 = load i16, i16* %14
  ret i16 %15
}

define linkonce_odr i16 @_ZN10Controller4stepEii(%class.Controller* %this, i16 %target, i16 %measured) {
entry:
  %this.addr = alloca %class.Controller*
  %target.addr = alloca i16
  %measured.addr = alloca i16
  %error = alloca %class.Fixed
  %ref_tmp = alloca %class.Fixed
  %ref_tmp2 = alloca %class.Fixed
  %ref_tmp3 = alloca %class.Fixed
  %ref_tmp4 = alloca %class.Fixed
  %ref_tmp6 = alloca %class.Fixed
  %ref_tmp7 = alloca %class.Fixed
  %change = alloca %class.Fixed
  %drive = alloca %class.Fixed
  %ref_tmp11 = alloca %class.Fixed
  %ref_tmp12 = alloca %class.Fixed
  %ref_tmp15 = alloca %class.Fixed
  %ref_tmp17 = alloca i16
  %0 = load i16, i16* %target.addr
  call void @_ZN5FixedC2Ei(%class.Fixed* %ref_tmp, i16 %0)
  %1 = load i16, i16* %measured.addr
  call void @_ZN5FixedC2Ei(%class.Fixed* %ref_tmp2, i16 %1)
  call void @_ZNK5FixedmiERKS_(%class.Fixed* %error, %class.Fixed* %ref_tmp, %class.Fixed* %ref_tmp2)
  %2 = load %class.Controller*, %class.Controller** %this.addr
  %3 = getelementptr inbounds %class.Controller, %class.Controller* %2, i32 0, i32 0
  %4 = getelementptr inbounds %struct.Gains, %struct.Gains* %3, i32 0, i32 1
  call void @_ZNK5FixedmlERKS_(%class.Fixed* %ref_tmp3, %class.Fixed* %error, %class.Fixed* %4)
  %5 = load %class.Controller*, %class.Controller** %this.addr
  %6 = getelementptr inbounds %class.Controller, %class.Controller* %5, i32 0, i32 2
  %7 = call %class.Fixed* @_ZN5FixedpLERKS_(%class.Fixed* %6, %class.Fixed* %ref_tmp3)
  %8 = load %class.Controller*, %class.Controller** %this.addr
  %9 = getelementptr inbounds %class.Controller, %class.Controller* %8, i32 0, i32 1
  %10 = getelementptr inbounds %struct.Limits, %struct.Limits* %9, i32 0, i32 0
  %11 = load i16, i16* %10
  call void @_ZN5FixedC2Ei(%class.Fixed* %ref_tmp6, i16 %11)
  %12 = load %class.Controller*, %class.Controller** %this.addr
  %13 = getelementptr inbounds %class.Controller, %class.Controller* %12, i32 0, i32 1
  %14 = getelementptr inbounds %struct.Limits, %struct.Limits* %13, i32 0, i32 1
  %15 = load i16, i16* %14
  call void @_ZN5FixedC2Ei(%class.Fixed* %ref_tmp7, i16 %15)
  %16 = load %class.Controller*, %class.Controller** %this.addr
  %17 = getelementptr inbounds %class.Controller, %class.Controller* %16, i32 0, i32 2
  call void @_Z5clampI5FixedET_RKS1_S3_S3_(%class.Fixed* %ref_tmp4, %class.Fixed* %17, %class.Fixed* %ref_tmp6, %class.Fixed* %ref_tmp7)
  %18 = load %class.Fixed, %class.Fixed* %ref_tmp4
  %19 = load %class.Controller*, %class.Controller** %this.addr
  %20 = getelementptr inbounds %class.Controller, %class.Controller* %19, i32 0, i32 2
  store %class.Fixed %18, %class.Fixed* %20
  %21 = load %class.Controller*, %class.Controller** %this.addr
  %22 = getelementptr inbounds %class.Controller, %class.Controller* %21, i32 0, i32 3
  call void @_ZNK5FixedmiERKS_(%class.Fixed* %change, %class.Fixed* %error, %class.Fixed* %22)
  %23 = load %class.Fixed, %class.Fixed* %error
  %24 = load %class.Controller*, %class.Controller** %this.addr
  %25 = getelementptr inbounds %class.Controller, %class.Controller* %24, i32 0, i32 3
  store %class.Fixed %23, %class.Fixed* %25
  %26 = load %class.Controller*, %class.Controller** %this.addr
  %27 = getelementptr inbounds %class.Controller, %class.Controller* %26, i32 0, i32 0
  %28 = getelementptr inbounds %struct.Gains, %struct.Gains* %27, i32 0, i32 0
  call void @_ZNK5FixedmlERKS_(%class.Fixed* %ref_tmp12, %class.Fixed* %error, %class.Fixed* %28)
  %29 = load %class.Controller*, %class.Controller** %this.addr
  %30 = getelementptr inbounds %class.Controller, %class.Controller* %29, i32 0, i32 2
  call void @_ZNK5FixedplERKS_(%class.Fixed* %ref_tmp11, %class.Fixed* %ref_tmp12, %class.Fixed* %30)
  %31 = load %class.Controller*, %class.Controller** %this.addr
  %32 = getelementptr inbounds %class.Controller, %class.Controller* %31, i32 0, i32 0
  %33 = getelementptr inbounds %struct.Gains, %struct.Gains* %32, i32 0, i32 2
  call void @_ZNK5FixedmlERKS_(%class.Fixed* %ref_tmp15, %class.Fixed* %change, %class.Fixed* %33)
  call void @_ZNK5FixedplERKS_(%class.Fixed* %drive, %class.Fixed* %ref_tmp11, %class.Fixed* %ref_tmp15)
  %34 = call i16 @_ZNK5Fixed5wholeEv(%class.Fixed* %drive)
  store i16 %34, i16* %ref_tmp17
  %35 = load %class.Controller*, %class.Controller** %this.addr
  %36 = getelementptr inbounds %class.Controller, %class.Controller* %35, i32 0, i32 1
  %37 = getelementptr inbounds %struct.Limits, %struct.Limits* %36, i32 0, i32 0
  %38 = load %class.Controller*, %class.Controller** %this.addr
  %39 = getelementptr inbounds %class.Controller, %class.Controller* %38, i32 0, i32 1
  %40 = getelementptr inbounds %struct.Limits, %struct.Limits* %39, i32 0, i32 1
  %41 = call i16 @_Z5clampIiET_RKS0_S2_S2_(i16* %ref_tmp17, i16* %37, i16* %40)
  ret i16 %41
}

define internal void @_GLOBAL__sub_I_control_cpp() {
entry:
  call void @__cxx_global_var_init()
  call void @__cxx_global_var_init_1()
  ret void
}

!0 = !DICompositeType(tag: DW_TAG_structure_type, name: "Gains")
!1 = !DIDerivedType(tag: DW_TAG_member, name: "proportional", scope: !0)
!2 = !DIDerivedType(tag: DW_TAG_member, name: "integral", scope: !0)
!3 = !DIDerivedType(tag: DW_TAG_member, name: "derivative", scope: !0)
!4 = !DICompositeType(tag: DW_TAG_structure_type, name: "Fixed")
!5 = !DIDerivedType(tag: DW_TAG_member, name: "raw", scope: !4)
!6 = !DICompositeType(tag: DW_TAG_structure_type, name: "Controller")
!7 = !DIDerivedType(tag: DW_TAG_member, name: "gains", scope: !6)
!8 = !DIDerivedType(tag: DW_TAG_member, name: "limits", scope: !6)
!9 = !DIDerivedType(tag: DW_TAG_member, name: "sum", scope: !6)
!10 = !DIDerivedType(tag: DW_TAG_member, name: "last", scope: !6)
!11 = !DICompositeType(tag: DW_TAG_structure_type, name: "Limits")
!12 = !DIDerivedType(tag: DW_TAG_member, name: "low", scope: !11)
!13 = !DIDerivedType(tag: DW_TAG_member, name: "high", scope: !11)
