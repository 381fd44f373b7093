source_filename = "uart.cpp"
declare { %class.Ring*, %class.Ring_0*, %struct.Registers* } @llvm.dbg.order()
%class.Uart = type { %struct.Registers*, %class.Ring, %class.Ring_0, i16 }
%struct.Registers = type { i8, i8 }
%class.Ring = type { [16 x i8], i8, i8, i16 }
%class.Ring_0 = type { [32 x i8], i8, i8, i16 }
@console = global %class.Uart zeroinitializer
@_str = private constant [7 x i8] c"hello \00"
@_str_1 = private constant [9 x i8] c", visit \00"
@_str_2 = private constant [2 x i8] c"\0A\00"
declare void @llvm.dbg.declare(metadata, metadata, metadata)
define void @greet(i8* %name, i16 %visits) {
entry:
  %name.addr = alloca i8*
  %visits.addr = alloca i16
  %0 = call %class.Uart* @_ZN4UartlsEPKc(%class.Uart* @console, i8* getelementptr ([7 x i8], [7 x i8]* @_str, i16 0, i16 0))
  %1 = load i8*, i8** %name.addr
  %2 = call %class.Uart* @_ZN4UartlsEPKc(%class.Uart* %0, i8* %1)
  %3 = call %class.Uart* @_ZN4UartlsEPKc(%class.Uart* %2, i8* getelementptr ([9 x i8], [9 x i8]* @_str_1, i16 0, i16 0))
  %4 = load i16, i16* %visits.addr
  %5 = call %class.Uart* @_ZN4UartlsEi(%class.Uart* %3, i16 %4)
  %6 = call %class.Uart* @_ZN4UartlsEPKc(%class.Uart* %5, i8* getelementptr ([2 x i8], [2 x i8]* @_str_2, i16 0, i16 0))
  ret void
}

define linkonce_odr zeroext i8 @_ZN4RingIhLi32EE4nextEh(i8 zeroext %at) {
entry:
  %at.addr = alloca i8
  %0 = load i8, i8* %at.addr
  %1 = zext i8 %0 to i16
  %2 = add i16 %1, 1
  %3 = icmp slt i16 %2, 32
  %4 = load i8, i8* %at.addr
  %5 = zext i8 %4 to i16
  %6 = add i16 %5, 1
  %7 = select i1 %3, i16 %6, i16 0
  %8 = trunc i16 %7 to i8
  ret i8 %8
}

define linkonce_odr zeroext i1 @_ZNK4RingIhLi32EE4fullEv(%class.Ring_0* %this) {
entry:
  %this.addr = alloca %class.Ring_0*
  %conv = alloca i16
  %0 = load %class.Ring_0*, %class.Ring_0** %this.addr
  %1 = getelementptr inbounds %class.Ring_0, %class.Ring_0* %0, i32 0, i32 1
  %2 = load i8, i8* %1
  %3 = call i8 @_ZN4RingIhLi32EE4nextEh(i8 %2)
  %4 = zext i8 %3 to i16
  store i16 %4, i16* %conv
  %5 = load i16, i16* %conv
  %6 = load %class.Ring_0*, %class.Ring_0** %this.addr
  %7 = getelementptr inbounds %class.Ring_0, %class.Ring_0* %6, i32 0, i32 2
  %8 = load i8, i8* %7
  %9 = zext i8 %8 to i16
  %10 = icmp eq i16 %5, %9
  ret i1 %10
}

define linkonce_odr zeroext i1 @_ZN4RingIhLi32EE3putERKh(%class.Ring_0* %this, i8* %value) {
entry:
  %this.addr = alloca %class.Ring_0*
  %value.addr = alloca i8*
  %0 = load %class.Ring_0*, %class.Ring_0** %this.addr
  %1 = call i1 @_ZNK4RingIhLi32EE4fullEv(%class.Ring_0* %0)
  br i1 %1, label %if.then0, label %if.end0

if.then0:
  %2 = load %class.Ring_0*, %class.Ring_0** %this.addr
  %3 = getelementptr inbounds %class.Ring_0, %class.Ring_0* %2, i32 0, i32 3
  %4 = load i16, i16* %3
  %5 = add i16 %4, 1
  %6 = load %class.Ring_0*, %class.Ring_0** %this.addr
  %7 = getelementptr inbounds %class.Ring_0, %class.Ring_0* %6, i32 0, i32 3
  store i16 %5, i16* %7
  ret i1 false

if.end0:
  %8 = load i8*, i8** %value.addr
  %9 = load i8, i8* %8
  %10 = load %class.Ring_0*, %class.Ring_0** %this.addr
  %11 = getelementptr inbounds %class.Ring_0, %class.Ring_0* %10, i32 0, i32 0
  %12 = load %class.Ring_0*, %class.Ring_0** %this.addr
  %13 = getelementptr inbounds %class.Ring_0, %class.Ring_0* %12, i32 0, i32 1
  %14 = load i8, i8* %13
  %15 = zext i8 %14 to i16
  %16 = getelementptr inbounds [32 x i8], [32 x i8]* %11, i16 0, i16 %15
  store i8 %9, i8* %16
  %17 = load %class.Ring_0*, %class.Ring_0** %this.addr
  %18 = getelementptr inbounds %class.Ring_0, %class.Ring_0* %17, i32 0, i32 1
  %19 = load i8, i8* %18
  %20 = call i8 @_ZN4RingIhLi32EE4nextEh(i8 %19)
  %21 = load %class.Ring_0*, %class.Ring_0** %this.addr
  %22 = getelementptr inbounds %class.Ring_0, %class.Ring_0* %21, i32 0, i32 1
  store i8 %20, i8* %22
  ret i1 true
}

define linkonce_odr %class.Uart* @_ZN4UartlsEPKc(%class.Uart* %this, i8* %text) {
entry:
  %this.addr = alloca %class.Uart*
  %text.addr = alloca i8*
  %ref_tmp = alloca i8
  br label %while.cond0

while.cond0:
  %0 = load i8*, i8** %text.addr
  %1 = load i8, i8* %0
  %2 = icmp ne i8 %1, 0
  br i1 %2, label %while.body0, label %while.end0

while.body0:
  %3 = load i8*, i8** %text.addr
  %incdec.ptr.0 = getelementptr inbounds i8, i8* %3, i32 1
  store i8* %incdec.ptr.0, i8** %text.addr
  %4 = load i8, i8* %3
  store i8 %4, i8* %ref_tmp
  %5 = load %class.Uart*, %class.Uart** %this.addr
  %6 = getelementptr inbounds %class.Uart, %class.Uart* %5, i32 0, i32 2
  %7 = call i1 @_ZN4RingIhLi32EE3putERKh(%class.Ring_0* %6, i8* %ref_tmp)
  br label %while.cond0

while.end0:
  %8 = load %class.Uart*, %class.Uart** %this.addr
  ret %class.Uart* %8
}

define linkonce_odr %class.Uart* @_ZN4UartlsEi(%class.Uart* %this, i16 %value) {
entry:
  %this.addr = alloca %class.Uart*
  %value.addr = alloca i16
  %ref_tmp = alloca i8
  %ref_tmp7 = alloca i8
  %0 = load i16, i16* %value.addr
  %1 = icmp slt i16 %0, 0
  br i1 %1, label %if.then0, label %if.end0

if.then0:
  store i8 45, i8* %ref_tmp
  %2 = load %class.Uart*, %class.Uart** %this.addr
  %3 = getelementptr inbounds %class.Uart, %class.Uart* %2, i32 0, i32 2
  %4 = call i1 @_ZN4RingIhLi32EE3putERKh(%class.Ring_0* %3, i8* %ref_tmp)
  %5 = load i16, i16* %value.addr
  %6 = sub i16 0, %5
  store i16 %6, i16* %value.addr
  br label %if.end0

if.end0:
  %7 = load i16, i16* %value.addr
  %8 = icmp sge i16 %7, 10
  br i1 %8, label %if.then1, label %if.end1

if.then1:
  %9 = load %class.Uart*, %class.Uart** %this.addr
  %10 = load i16, i16* %value.addr
  %11 = sdiv i16 %10, 10
  %12 = call %class.Uart* @_ZN4UartlsEi(%class.Uart* %9, i16 %11)
  br label %if.end1

if.end1:
  %13 = load i16, i16* %value.addr
  %14 = srem i16 %13, 10
  %15 = add i16 48, %14
  %16 = trunc i16 %15 to i8
  store i8 %16, i8* %ref_tmp7
  %17 = load %class.Uart*, %class.Uart** %this.addr
  %18 = getelementptr inbounds %class.Uart, %class.Uart* %17, i32 0, i32 2
  %19 = call i1 @_ZN4RingIhLi32EE3putERKh(%class.Ring_0* %18, i8* %ref_tmp7)
  %20 = load %class.Uart*, %class.Uart** %this.addr
  ret %class.Uart* %20
}

